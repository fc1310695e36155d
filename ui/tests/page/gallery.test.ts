import { expect, test } from "vitest";
import { useLiveViews } from "./views";
import type { ViewOptions } from "./harness";

// Pictures of the page in its typical states and sizes, and a check that nothing sticks out.
const open = useLiveViews();

const busy = { autoClicking: true, keySpamming: true, state: "Recording", count: 1204 };
const full = { keySpamTargets: ["Space", "Left Ctrl", "Num Enter"], keySpamChord: true, count: 58 };
const pictures: Record<string, ViewOptions> = {
  window_narrow: { width: 360, height: 640, status: full },
  window_usual: { width: 420, height: 560 },
  window_wide: { width: 900, height: 700, status: full, profiles: ["Default Tracking Profile", "Fishing"] },
  window_wide_busy: { width: 900, height: 700, status: busy },
  window_largest: { width: 1400, height: 900, theme: "daylight", status: full },
  keys_full: { width: 420, height: 560, status: full },
};

test.each(Object.keys(pictures))("%s holds everything in its width", async (name) => {
  const view = await open(pictures[name]!);
  await view.page.waitForTimeout(300);
  const overhang = await view.page.evaluate(() => {
    const { scrollWidth, clientWidth } = document.documentElement;
    return scrollWidth - clientWidth;
  });
  expect(overhang).toBe(0);
  await view.shot(name, true);
});
