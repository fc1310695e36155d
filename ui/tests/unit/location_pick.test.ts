import { afterEach, beforeEach, expect, test, vi } from "vitest";
import { Bridge } from "../../src/bridge/bridge";
import { LocationPick } from "../../src/state/location_pick.svelte";
import { Tools } from "../../src/state/tools.svelte";

let settings: Record<string, number>;
let pick: LocationPick;

beforeEach(async () => {
  vi.useFakeTimers();
  settings = { locMode: 1, fixedX: 10, fixedY: 20 };
  const host = {
    getSettings: async () => ({ ...settings }),
    pickLocation: async () => undefined,
    updateSpammer: async () => undefined,
  };
  const bridge = new Bridge(host);
  const tools: Tools = new Tools(bridge, () => pick.waiting);
  pick = new LocationPick(bridge, tools);
  tools.start();
  await vi.advanceTimersByTimeAsync(10);
  await pick.begin();
});
afterEach(() => vi.useRealTimers());

test("a new point ends the wait soon after", async () => {
  await vi.advanceTimersByTimeAsync(1000);
  expect(pick.waiting).toBe(true);
  settings["fixedX"] = 300;
  await vi.advanceTimersByTimeAsync(300);
  expect(pick.waiting).toBe(false);
});

test("a press that reaches the page ends the wait, since the picking click never does", () => {
  pick.pressSeen(false);
  expect(pick.waiting).toBe(false);
});

test("a click of the tools themselves tells nothing", () => {
  pick.pressSeen(true);
  expect(pick.waiting).toBe(true);
});

test("the first point ever ends the wait, even at the place where the point stood", async () => {
  pick.pressSeen(false);
  settings["locMode"] = 0;
  await vi.advanceTimersByTimeAsync(3000);
  await pick.begin();
  settings["locMode"] = 1;
  await vi.advanceTimersByTimeAsync(300);
  expect(pick.waiting).toBe(false);
});

test("an edit sent just before is not taken for the pick", async () => {
  pick.pressSeen(false);
  settings["locMode"] = 0;
  await vi.advanceTimersByTimeAsync(3000);
  settings["locMode"] = 1;
  await pick.begin();
  await vi.advanceTimersByTimeAsync(1000);
  expect(pick.waiting).toBe(true);
});
