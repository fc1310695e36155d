import { expect, test } from "vitest";
import { readToolSettings } from "../../src/bridge/tool_settings";
import { followsCursorFast, holdBackKey } from "../../src/frame/tool_shield";

const clicker = (change: object) => readToolSettings(change)!.clicker;

test("only a fast clicker that follows the cursor is kept from the page", () => {
  expect(followsCursorFast(clicker({ sms: 5 }))).toBe(true);
  expect(followsCursorFast(clicker({ sms: 999 }))).toBe(true);
  expect(followsCursorFast(clicker({ ss: 1, sms: 0 }))).toBe(false);
  expect(followsCursorFast(clicker({ sms: 5, locMode: 1 }))).toBe(false);
});

test("a running key spammer leaves the page the keys that lead to its stop button", () => {
  const heldBack = (key: string, keySpamming: boolean) => {
    let held = false;
    const event = { key, preventDefault: () => (held = true), stopPropagation: () => undefined };
    holdBackKey(event as unknown as KeyboardEvent, keySpamming);
    return held;
  };
  expect(heldBack(" ", true)).toBe(true);
  expect(heldBack("a", true)).toBe(true);
  expect(heldBack("Tab", true)).toBe(false);
  expect(heldBack("Enter", true)).toBe(false);
  expect(heldBack(" ", false)).toBe(false);
});
