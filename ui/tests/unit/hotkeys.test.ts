import { describe, expect, test } from "vitest";
import { readStatus } from "../../src/bridge/status";
import { announce } from "../../src/text/announcements";
import { captureHint, hotkeyMood, keyDoes } from "../../src/text/hotkey_texts";
import { leftButtonTaken, shadowedHotkeys } from "../../src/text/key_conflicts";

const hotkeys = { rec: "F8", play: "F7", auto: "F6", keyspamhotkey: "F9", unlock: "F10" };
const status = (change: object) =>
  readStatus({ hkUnlock: "F10", lockOn: true, unlocked: true, ...change })!;

describe("two hotkeys on one key", () => {
  test("do not clash when all differ", () => {
    expect(shadowedHotkeys(hotkeys, true)).toEqual({});
  });

  test("leave the one that the program compares first", () => {
    expect(shadowedHotkeys({ ...hotkeys, auto: "F8" }, true)).toEqual({ auto: "rec" });
    expect(shadowedHotkeys({ ...hotkeys, play: "F10" }, true)).toEqual({ play: "unlock" });
  });

  test("count the unlock key only while the lock is on", () => {
    expect(shadowedHotkeys({ ...hotkeys, play: "F10" }, false)).toEqual({});
  });

  test("name the same winner for every loser", () => {
    const all = { ...hotkeys, play: "F8", auto: "F8" };
    expect(shadowedHotkeys(all, true)).toEqual({ play: "rec", auto: "rec" });
  });
});

test("a hotkey on the left button is found", () => {
  expect(leftButtonTaken(hotkeys)).toEqual([]);
  expect(leftButtonTaken({ ...hotkeys, auto: "Left Mouse" })).toEqual(["auto"]);
});

test("the hotkeys are ready, locked, off or unknown", () => {
  expect(hotkeyMood(null, true)).toBe("unknown");
  expect(hotkeyMood(status({}), true)).toBe("ready");
  expect(hotkeyMood(status({ unlocked: false }), true)).toBe("locked");
  expect(hotkeyMood(status({ unlocked: false, lockOn: false }), true)).toBe("ready");
  expect(hotkeyMood(status({ unlocked: false }), false)).toBe("off");
});

test("the overview says what a key does next", () => {
  expect(keyDoes("ready", "F6", "starts")).toBe("F6 starts");
  expect(keyDoes("locked", "F6", "starts")).toBe("key locked");
  expect(keyDoes("off", "F6", "starts")).toBe("keys off");
  expect(keyDoes("ready", "", "starts")).toBe("");
});

test("each capture says what may be pressed", () => {
  expect(captureHint("rec")).toBe("Press a key or mouse button… Esc cancels");
  expect(captureHint("keyspamtarget")).toBe("Press a key… Esc cancels");
  expect(captureHint("unlock")).toContain("but the left");
});

describe("an announcement", () => {
  test("tells nothing at the first status or without a change", () => {
    expect(announce(null, status({ autoClicking: true }))).toBe("");
    expect(announce(status({}), status({}))).toBe("");
  });

  test("tells what started and stopped", () => {
    const both = status({ autoClicking: true, keySpamming: true });
    expect(announce(status({}), both)).toBe("Auto clicker started. Key spammer started");
    expect(announce(both, status({}))).toBe("Auto clicker stopped. Key spammer stopped");
  });

  test("tells how a recording ended", () => {
    const ended = announce(status({ state: "Recording" }), status({ count: 1204 }));
    expect(ended).toBe("Recording ended, 1\u202f204 events");
  });

  test("tells which key unlocks", () => {
    expect(announce(status({}), status({ unlocked: false }))).toBe("Hotkeys locked, F10 unlocks");
    expect(announce(status({ unlocked: false }), status({}))).toBe("Hotkeys unlocked");
  });
});
