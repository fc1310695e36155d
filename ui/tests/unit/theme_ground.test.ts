import { readFileSync } from "node:fs";
import { expect, test } from "vitest";
import { themes } from "../../src/text/themes";

const styles = readFileSync("src/styles/themes.css", "utf8");
const program = readFileSync("../themes/theme_ground.cpp", "utf8");

function groundInStyles(key: string): string | undefined {
  const block = styles.split("}").find((part) => part.includes(`[data-theme="${key}"]`));
  return /--bg-main: #([0-9a-f]{6});/.exec(block ?? "")?.[1];
}

test("the program knows the ground of every theme, and no others", () => {
  const known = [...program.matchAll(/\{"(\w+)", 0x([0-9a-f]{6})\}/g)].map(([, key, colour]) => [key, colour]);
  expect(known).toEqual(themes.map(({ key }) => [key, groundInStyles(key)]));
});
