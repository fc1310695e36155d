import { AxeBuilder } from "@axe-core/playwright";
import { afterAll, beforeAll, describe, expect, test } from "vitest";
import { themes } from "../../src/text/themes";
import { launch, View } from "./harness";
import type { Browser } from "playwright-core";

let browser: Browser;
beforeAll(async () => void (browser = await launch()));
afterAll(() => browser.close());

const states = {
  idle: {},
  running: { autoClicking: true, keySpamming: true, state: "Playing" },
  recording: { state: "Recording", count: 1204 },
  locked: { unlocked: false },
  capturing: { reassigning: "auto" },
  clashing: { hkAuto: "F8", hkKeySpam: "Left Mouse" },
  full: { keySpamTargets: ["Space", "Left Ctrl", "C"], keySpamChord: true },
};

describe.each(themes)("in the theme $key", ({ key }) => {
  test.each(Object.keys(states))("axe finds nothing while %s", async (name) => {
    const view = await View.open(browser, {
      theme: key,
      height: 900,
      status: states[name as keyof typeof states],
      preferences: { disableAnimations: true },
    });
    await view.page.locator(".bar ul").waitFor();
    await view.page.waitForTimeout(200);
    const { violations } = await new AxeBuilder({ page: view.page }).analyze();
    const found = violations.map((v) => `${v.id}: ${v.nodes.map((n) => n.html).join(" | ")}`);
    expect(found).toEqual([]);
    await view.shot(`state_${name}_${key}`, true);
    await view.close();
  });
});
