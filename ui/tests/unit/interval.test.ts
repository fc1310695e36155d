import { describe, expect, test } from "vitest";
import {
  carryOver,
  describeDuration,
  describeRate,
  longestInterval,
  totalMs,
} from "../../src/text/interval";

const at = (h: number, m: number, s: number, ms: number) => ({ h, m, s, ms });

describe("an interval", () => {
  test("is the sum of its parts", () => {
    expect(totalMs(at(1, 2, 3, 4))).toBe(3_723_004);
  });

  test("is never shorter than one millisecond", () => {
    expect(totalMs(at(0, 0, 0, 0))).toBe(1);
    expect(totalMs(at(-5, 0, 0, 0))).toBe(1);
  });

  test("is never longer than its four fields can show", () => {
    expect(totalMs(at(99, 9999, 0, 0))).toBe(longestInterval);
    expect(totalMs(at(0, 0, 0, Number.POSITIVE_INFINITY))).toBe(1);
    expect(totalMs(at(Number.NaN, 0, 0, 7))).toBe(1);
  });

  test("carries what a part holds too much over to the next one", () => {
    expect(carryOver(at(0, 0, 0, 1500))).toEqual(at(0, 0, 1, 500));
    expect(carryOver(at(0, 0, 90, 0))).toEqual(at(0, 1, 30, 0));
    expect(carryOver(at(0, 59, 59, 1000))).toEqual(at(1, 0, 0, 0));
  });

  test("becomes one millisecond when all parts are zero", () => {
    expect(carryOver(at(0, 0, 0, 0))).toEqual(at(0, 0, 0, 1));
  });

  test("takes negative parts off the sum, as the engine does", () => {
    expect(carryOver(at(0, 0, 2, -500))).toEqual(at(0, 0, 1, 500));
  });
});

describe("a duration in words", () => {
  test.each([
    [1, "1 ms"],
    [50, "50 ms"],
    [999, "999 ms"],
    [1000, "1 s"],
    [1500, "1.5 s"],
    [1005, "1.005 s"],
    [60_000, "1 min"],
    [150_000, "2 min 30 s"],
    [3_600_000, "1 h"],
    [3_661_001, "1 h 1 min 1.001 s"],
  ])("%d ms reads %s", (ms, text) => {
    expect(describeDuration(ms)).toBe(text);
  });
});

describe("a rate in words", () => {
  test.each([
    [5, "about 200 clicks a second"],
    [50, "about 20 clicks a second"],
    [150, "about 6.7 clicks a second"],
    [1000, "about 1 click a second"],
    [1500, "about 40 clicks a minute"],
    [60_000, "about 1 click a minute"],
    [90_000, "about 40 clicks an hour"],
    [7_200_000, "about 12 clicks a day"],
  ])("every %d ms reads %s", (ms, text) => {
    expect(describeRate(ms, "click", "clicks")).toBe(text);
  });
});
