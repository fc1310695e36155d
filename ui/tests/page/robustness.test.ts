import { existsSync, readFileSync, statSync } from "node:fs";
import { afterAll, beforeAll, describe, expect, test } from "vitest";
import { launch, pageText, View, type ViewOptions } from "./harness";
import type { Browser } from "playwright-core";

let browser: Browser;
beforeAll(async () => void (browser = await launch()));
afterAll(() => browser.close());

const odd = /undefined|NaN|null|\[object/;

// Opens the page, presses whatever can be pressed, and reports what went wrong.
async function explore(options: ViewOptions): Promise<string[]> {
  const view = await View.open(browser, { height: 2600, ...options });
  await view.page.waitForTimeout(250);
  const buttons = view.page.locator("button:visible:enabled");
  for (let at = 0; at < (await buttons.count()); at++) {
    await buttons.nth(at).click({ timeout: 2000, force: true }).catch(() => undefined);
  }
  await view.page.waitForTimeout(150);
  const text = await view.page.evaluate(() => document.body.innerText);
  const found = [...view.errors, ...(odd.exec(text) ?? [])];
  if (!(await view.page.locator("#panel-spammer").isVisible())) found.push("no panel");
  await view.close();
  return found;
}

const methods = [
  "resizeWindow", "updateSpammer", "startSpammer", "stopSpammer", "updateKeySpam",
  "startKeySpam", "stopKeySpam", "removeKeySpamTarget", "setKeySpamChordMode", "pickLocation",
  "getAppSettings", "markWarningSeen", "setAppSetting", "setPanelOrder", "resetHotkeys",
  "openLink", "getTrackerStatus", "clearProfile", "addProfile", "deleteProfile", "switchProfile",
  "getProfiles", "startUpdate", "getSettings", "reassignKey",
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
    const view = await View.open(browser, {
      status: { state: 7, count: "many", hkRec: null, restore: "x", keySpamTargets: [1, null] },
      settings: { sh: "a", tspd: null, rptTimes: -3 },
      preferences: { panelOrder: 5, seenWarnings: null },
    });
    await view.page.locator(".bar ul").waitFor();
    expect(view.errors).toEqual([]);
    expect(await view.page.evaluate(() => document.body.innerText)).not.toMatch(odd);
    await view.close();
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
    expect(html.split("</script>")).toHaveLength(3);
  });

  test("stays below 600 kB, its vendor script included, which can stand inside a script element", () => {
    const vendor = file.replace("index.html", "vendor/Sortable.min.js");
    expect(existsSync(vendor)).toBe(true);
    expect(readFileSync(vendor, "utf8")).not.toContain("</script>");
    expect(statSync(file).size + statSync(vendor).size).toBeLessThan(600_000);
    expect(pageText().length).toBeGreaterThan(html.length);
  });
});
