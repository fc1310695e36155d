import { AxeBuilder } from "@axe-core/playwright";
import { describe, expect, test } from "vitest";
import { themes } from "../../src/text/themes";
import { useLiveViews } from "./views";

const open = useLiveViews({ height: 900, preferences: { disableAnimations: true } });

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
    const view = await open({ theme: key, status: states[name as keyof typeof states] });
    await view.page.waitForTimeout(200);
    const axe = new AxeBuilder({ page: view.page });
    // The structure is the same in every theme; the colours are not.
    if (key !== "ravelin" && name !== "idle") axe.withRules(["color-contrast"]);
    const { violations } = await axe.analyze();
    const found = violations.map((v) => `${v.id}: ${v.nodes.map((n) => n.html).join(" | ")}`);
    expect(found).toEqual([]);
    await view.shot(`state_${name}_${key}`, true);
  });
});
