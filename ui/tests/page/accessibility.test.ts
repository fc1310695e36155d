import { AxeBuilder } from "@axe-core/playwright";
import { describe, expect, test } from "vitest";
import { themes } from "../../src/text/themes";
import { panelScript, panelWindowMethods } from "./panel_window";
import { useLiveViews, useViews } from "./views";
import type { ViewOptions } from "./harness";
import type { Page } from "playwright-core";

const open = useLiveViews({ height: 900, preferences: { disableAnimations: true } });
const openPanel = useViews({ width: 450, height: 500, only: panelWindowMethods });

async function show(options: ViewOptions) {
  const view = await open(options);
  return { page: view.page, shot: view.shot.bind(view) };
}

const states = {
  idle: {},
  running: { autoClicking: true, keySpamming: true, state: "Playing" },
  recording: { state: "Recording", count: 1204 },
  locked: { unlocked: false },
  capturing: { reassigning: "auto" },
  clashing: { hkAuto: "F8", hkKeySpam: "Left Mouse" },
  full: { keySpamTargets: ["Space", "Left Ctrl", "C"], keySpamChord: true },
};

async function faults(page: Page, rules?: string[]): Promise<string[]> {
  // Colours are judged at rest.
  await page.waitForTimeout(200);
  const axe = new AxeBuilder({ page });
  if (rules) axe.withRules(rules);
  const { violations } = await axe.analyze();
  return violations.map((v) => `${v.id}: ${v.nodes.map((n) => n.html).join(" | ")}`);
}

describe.each(themes)("in the theme $key", ({ key }) => {
  test.each(Object.keys(states))("axe finds nothing while %s", async (name) => {
    const { page, shot } = await show({ theme: key, status: states[name as keyof typeof states] });
    // The structure is the same in every theme; the colours are not.
    const onlyColours = key !== "ravelin" && name !== "idle";
    expect(await faults(page, onlyColours ? ["color-contrast"] : undefined)).toEqual([]);
    await shot(`state_${name}_${key}`, true);
  });

  test("axe finds nothing in notices and questions", async () => {
    const { page } = await show({ theme: key, settings: { locMode: 1 } });
    await page.evaluate(() => window.onUpdateAvailable?.("1.2.0", "1.0.1"));
    await page.getByRole("button", { name: "Clear this profile…" }).click();
    await page.getByRole("button", { name: "Pick location" }).click();
    await page.getByText("Click anywhere on the screen…", { exact: false }).first().waitFor();
    expect(await faults(page)).toEqual([]);
    await page.evaluate(() => window.onUpdateProgress?.(1, 4));
    await page.getByRole("progressbar").waitFor();
    expect(await faults(page)).toEqual([]);
  });

  test("axe finds nothing in a window of one panel", async () => {
    const view = await openPanel({ appended: panelScript("panel-keyspam", key) });
    await view.page.getByRole("button", { name: "Start pressing" }).waitFor();
    expect(await faults(view.page)).toEqual([]);
  });
});

test("everything can be reached with the keyboard, and shows that it has the focus", async () => {
  const { page } = await show({ status: { keySpamTargets: ["A", "B"] } });
  const reachable = await page.evaluate(() => {
    const all = [...document.querySelectorAll<HTMLInputElement>("button, input, select")];
    const groups = new Set<string>();
    return all.filter((element) => {
      if (element.disabled || element.getClientRects().length === 0) return false;
      if (element.type !== "radio") return true;
      // Of a group of radio buttons only the chosen one is a stop.
      return element.checked && !groups.has(element.name) && groups.add(element.name);
    }).length;
  });
  const unmarked: string[] = [];
  for (let stop = 0; stop < reachable; stop++) {
    await page.keyboard.press("Tab");
    const fault = await page.evaluate(() => {
      const element = document.activeElement as HTMLElement;
      // Where the input itself is not seen, what stands beside it shows the focus.
      const marked = [element, element.nextElementSibling].some((shown) => {
        if (!shown || (shown !== element && !element.matches("input[type=radio]"))) return false;
        const { outlineStyle, opacity } = getComputedStyle(shown);
        return outlineStyle !== "none" && opacity !== "0";
      });
      const again = element.dataset["visited"] === "yes" || element === document.body;
      element.dataset["visited"] = "yes";
      return marked && !again ? "" : element.outerHTML;
    });
    if (fault) unmarked.push(fault);
  }
  expect(unmarked).toEqual([]);
  expect(reachable).toBeGreaterThan(40);
});
