import { existsSync, readFileSync, statSync } from "node:fs";
import { describe, expect, test } from "vitest";
import { pageText, type ViewOptions } from "./harness";
import { useViews } from "./views";

const open = useViews({ height: 2600 });

const odd = /undefined|NaN|null|\[object/;

// Opens the page, presses whatever can be pressed, and reports what went wrong.
async function explore(options: ViewOptions): Promise<string[]> {
  const view = await open(options);
  await view.page.locator("#panel-spammer").waitFor();
  for (let round = 0; round < 2; round++) {
    await view.page.waitForTimeout(200);
    await view.page.evaluate(() => document.querySelectorAll("button").forEach((b) => b.click()));
  }
  await view.page.waitForTimeout(200);
  const text = await view.page.evaluate(() => document.body.innerText);
  const found: string[] = [...(odd.exec(text) ?? [])];
  const panels = await view.page.locator(".panel").count();
  if (panels !== 5) found.push(`${panels} panels`);
  return found;
}

const methods = [
  "resizeWindow", "updateSpammer", "startSpammer", "stopSpammer", "updateKeySpam",
  "startKeySpam", "stopKeySpam", "removeKeySpamTarget", "setKeySpamChordMode", "pickLocation",
  "getAppSettings", "markWarningSeen", "setAppSetting", "setPanelOrder", "resetHotkeys",
  "openLink", "getTrackerStatus", "clearProfile", "addProfile", "deleteProfile", "switchProfile",
  "getProfiles", "startUpdate", "getSettings", "reassignKey", "getActivity",
  "getEnvironment", "pagePainted",
];

describe("the page stays whole", () => {
  test("without any method", async () => {
    expect(await explore({ only: [] })).toEqual([]);
  });

  test("when every method rejects", async () => {
    expect(await explore({ rejecting: methods })).toEqual([]);
  });

  test("without the script for dragging", async () => {
    expect(await explore({ withoutVendor: true })).toEqual([]);
  });

  test.each(methods)("without %s", async (method) => {
    expect(await explore({ without: [method] })).toEqual([]);
  });

  test("when answers have the wrong form", async () => {
    const view = await open({
      status: { state: 7, count: "many", hkRec: null, restore: "x", keySpamTargets: [1, null] },
      settings: { sh: "a", tspd: null, rptTimes: -3 },
      preferences: { panelOrder: 5, seenWarnings: null },
    });
    await view.page.locator(".bar ul").waitFor();
    expect(await view.page.evaluate(() => document.body.innerText)).not.toMatch(odd);
    });
});

describe("the built page", () => {
  const file = `${process.env["PAGE_DIR"] ?? "dist"}/index.html`;
  const html = readFileSync(file, "utf8");

  test("refers to the vendor script exactly once, in the text the program looks for", () => {
    expect(html.split('<script src="vendor/Sortable.min.js"></script>')).toHaveLength(2);
  });

  test("needs no other file", () => {
    const references = html.match(/<(script|link|img)[^>]*(src|href)=[^>]*>/g);
    expect(references).toEqual(['<script src="vendor/Sortable.min.js">']);
    expect(html).not.toContain('type="module"');
  });

  test("ends its body once, where a script can be put in front", () => {
    expect(html.split("</body>")).toHaveLength(2);
    expect(html.split("</script>")).toHaveLength(4);
  });

  test("stays below 600 kB, its vendor script included, which can stand inside a script element", () => {
    const vendor = file.replace("index.html", "vendor/Sortable.min.js");
    expect(existsSync(vendor)).toBe(true);
    expect(readFileSync(vendor, "utf8")).not.toContain("</script>");
    expect(statSync(file).size + statSync(vendor).size).toBeLessThan(600_000);
    expect(pageText().length).toBeGreaterThan(html.length);
  });
});
