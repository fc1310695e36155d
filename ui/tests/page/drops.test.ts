import { writeFileSync, mkdtempSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { expect, test } from "vitest";
import { panelScript, panelWindowMethods } from "./panel_window";
import { useViews } from "./views";
import type { View, ViewOptions } from "./harness";

// What is dragged onto the page from other programs, through the browser's own handling of it.
const open = useViews();

interface DragData {
  items: { mimeType: string; data: string }[];
  files?: string[];
  dragOperationsMask: number;
}

const everyOperation = 1 + 2 + 16;
const file = join(mkdtempSync(join(tmpdir(), "drops-")), "macro.txt");
writeFileSync(file, "a file");

const item = (mimeType: string, data: string) => ({ mimeType, data });
const dragged: [string, DragData][] = [
  ["a file", { items: [], files: [file], dragOperationsMask: everyOperation }],
  ["a link", {
    items: [item("text/uri-list", "https://drops.invalid/"), item("text/plain", "https://drops.invalid/")],
    dragOperationsMask: everyOperation,
  }],
  ["text", { items: [item("text/plain", "42")], dragOperationsMask: everyOperation }],
];

// Drops it on the element as the system does; gives what the page would have been left for.
async function drop(view: View, selector: string, data: DragData): Promise<string[]> {
  const { page } = view;
  const left: string[] = [];
  await page.route("**/*", (route) => {
    left.push(route.request().url());
    return route.abort();
  });
  page.on("framenavigated", (frame) => left.push(frame.url()));
  page.context().on("page", (other) => left.push(other.url()));
  const box = (await page.locator(selector).first().boundingBox())!;
  const devtools = await page.context().newCDPSession(page);
  // A browser's window is left by what is dropped beside the page.
  const bottom = Math.min(box.y + box.height, page.viewportSize()!.height);
  const at = { x: box.x + box.width / 2, y: (box.y + bottom) / 2, data };
  for (const type of ["dragEnter", "dragOver", "drop"] as const)
    await devtools.send("Input.dispatchDragEvent", { type, ...at });
  // A browser that leaves a page does so after its answer; an answer from the page comes after that.
  await page.evaluate(() => new Promise((done) => setTimeout(done, 300)));
  return left;
}

const panel: ViewOptions = {
  width: 450,
  height: 400,
  only: panelWindowMethods,
  appended: panelScript("panel-spammer", "ravelin"),
};
const number = "#panel-spammer input[inputmode=numeric]";

for (const [name, data] of dragged) {
  test(`${name} dropped on the page leaves it where it is`, async () => {
    const view = await open();
    await view.page.locator("#panel-spammer").waitFor();
    for (const place of [".bar", "#panel-spammer .panel-header", "#dashboard"])
      expect(await drop(view, place, data), place).toEqual([]);
    expect(await view.page.locator("#panel-spammer").isVisible()).toBe(true);
  });

  test(`${name} dropped on a panel's window leaves it where it is`, async () => {
    const view = await open(panel);
    await view.page.locator("#panel-spammer").waitFor();
    expect(await drop(view, "#panel-spammer .panel-header", data)).toEqual([]);
    expect(await view.page.locator("#panel-spammer").isVisible()).toBe(true);
  });
}

test("a file or link dropped on a field leaves the page and the field as they are", async () => {
  const view = await open(panel);
  const field = view.page.locator(number).first();
  const before = await field.inputValue();
  for (const [, data] of dragged.slice(0, 2)) expect(await drop(view, number, data)).toEqual([]);
  expect(await field.inputValue()).toBe(before);
});

test("text may be dropped into a field", async () => {
  const view = await open(panel);
  const field = view.page.locator(number).first();
  await field.fill("");
  expect(await drop(view, number, dragged[2]![1])).toEqual([]);
  expect(await field.inputValue()).toBe("42");
});
