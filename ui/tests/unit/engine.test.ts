import { afterEach, beforeEach, expect, test, vi } from "vitest";
import { Bridge } from "../../src/bridge/bridge";
import { Engine } from "../../src/state/engine.svelte";

beforeEach(() => void vi.useFakeTimers());
afterEach(() => vi.useRealTimers());

test("a status is shown as reported, with the fallback for a value of the wrong type", async () => {
  const host = { getTrackerStatus: async () => ({ state: "Playing", count: "many", hkRec: "F8" }) };
  const engine = new Engine(new Bridge(host), () => false);
  engine.start();
  await vi.advanceTimersByTimeAsync(0);
  engine.stop();
  expect(engine.status).toMatchObject({ state: "Playing", count: 0, ksCap: 3, unlocked: true });
  expect(engine.status?.hotkeys.rec).toBe("F8");
});

test("one question is under way at a time, however slow the answer", async () => {
  let underWay = 0;
  let most = 0;
  const host = {
    getTrackerStatus: async () => {
      most = Math.max(most, ++underWay);
      await new Promise((done) => setTimeout(done, 400));
      underWay -= 1;
      return {};
    },
  };
  const engine = new Engine(new Bridge(host), () => false);
  engine.start();
  engine.refresh();
  await vi.advanceTimersByTimeAsync(100);
  engine.refresh();
  await vi.advanceTimersByTimeAsync(3000);
  engine.stop();
  expect(most).toBe(1);
});

test("a hidden window asks less often", async () => {
  const asked = async (hidden: boolean) => {
    let count = 0;
    const host = { getTrackerStatus: async () => ({ count: ++count }) };
    const engine = new Engine(new Bridge(host), () => hidden);
    engine.start();
    await vi.advanceTimersByTimeAsync(3000);
    engine.stop();
    return count;
  };
  expect(await asked(false)).toBeGreaterThan(15);
  expect(await asked(true)).toBeLessThan(5);
});

test("an equal status keeps the object that is shown", async () => {
  const host = { getTrackerStatus: async () => ({ count: 3 }) };
  const engine = new Engine(new Bridge(host), () => false);
  engine.start();
  await vi.advanceTimersByTimeAsync(0);
  const first = engine.status;
  await vi.advanceTimersByTimeAsync(1000);
  engine.stop();
  expect(engine.status).toBe(first);
});

test("a failing answer now and then changes nothing, a long silence loses the status", async () => {
  let failing = false;
  const host = {
    getTrackerStatus: async () => {
      if (failing) throw new Error("no answer");
      return { count: 3 };
    },
  };
  const engine = new Engine(new Bridge(host), () => false);
  engine.start();
  await vi.advanceTimersByTimeAsync(0);
  failing = true;
  await vi.advanceTimersByTimeAsync(450);
  expect(engine.status?.count).toBe(3);
  await vi.advanceTimersByTimeAsync(5000);
  expect(engine.status).toBeNull();
  failing = false;
  await vi.advanceTimersByTimeAsync(500);
  engine.stop();
  expect(engine.status?.count).toBe(3);
});

test("the status is asked for when the counter of changes has moved, and at least once a second", async () => {
  let changes = 1;
  let asked = 0;
  let light = 0;
  const host = {
    getActivity: async () => ({ changes, counted: ++light }),
    getTrackerStatus: async () => ({ count: ++asked }),
  };
  const engine = new Engine(new Bridge(host), () => false);
  engine.start();
  await vi.advanceTimersByTimeAsync(0);
  expect(asked).toBe(1);
  await vi.advanceTimersByTimeAsync(900);
  expect(light).toBeGreaterThan(8);
  expect(asked).toBe(1);
  changes += 1;
  await vi.advanceTimersByTimeAsync(110);
  expect(asked).toBe(2);
  await vi.advanceTimersByTimeAsync(5000);
  expect(asked).toBe(7);
  engine.refresh();
  await vi.advanceTimersByTimeAsync(0);
  expect(asked).toBe(8);
  engine.stop();
});

test("a program that does not answer the light question is asked for the status each time", async () => {
  let asked = 0;
  const host = {
    getActivity: async () => Promise.reject(new Error("broken")),
    getTrackerStatus: async () => ({ count: ++asked }),
  };
  const engine = new Engine(new Bridge(host), () => false);
  engine.start();
  await vi.advanceTimersByTimeAsync(1000);
  engine.stop();
  expect(asked).toBeGreaterThan(8);
});
