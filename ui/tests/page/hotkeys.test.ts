import { beforeEach, expect, test } from "vitest";
import { useLiveViews } from "./views";
import type { View } from "./harness";

const open = useLiveViews();
let view: View;
beforeEach(async () => {
  view = await open();
  await view.page.getByText("Hotkeys ready").waitFor();
});

const changeAuto = () =>
  view.page.getByRole("button", { name: "Change the key for Auto clicker" }).first();

test("changing a key shows what to press, and the new key once it is captured", async () => {
  await changeAuto().click();
  const hint = view.page.getByText("Press a key or mouse button… Esc cancels").first();
  await hint.waitFor();
  await view.shot("capturing", true);
  expect(await view.calls("reassignKey")).toEqual([["auto"]]);
  await view.report({ status: { reassigning: "", hkAuto: "Middle Mouse" } });
  await hint.waitFor({ state: "detached" });
  await view.page.getByText("Middle Mouse starts").waitFor();
});

test("Enter asks for the capture only when it is released", async () => {
  await changeAuto().focus();
  await view.page.keyboard.down("Enter");
  await view.page.waitForTimeout(100);
  expect(await view.calls("reassignKey")).toHaveLength(0);
  await view.page.keyboard.up("Enter");
  await expect.poll(() => view.calls("reassignKey")).toEqual([["auto"]]);
  await view.page.getByText("Press a key or mouse button… Esc cancels").first().waitFor();
  await view.report({ status: { reassigning: "" } });
  await expect.poll(() => changeAuto().evaluate((b) => b === document.activeElement)).toBe(true);
});

test("locked hotkeys are told with the key that unlocks them, and the page can unlock", async () => {
  await view.report({ status: { unlocked: false } });
  await view.page.getByText("Hotkeys are locked:", { exact: true }).waitFor();
  await view.page.getByText("key locked").first().waitFor();
  await view.shot("locked");
  await view.page.getByRole("button", { name: "Unlock", exact: true }).click();
  await view.page.getByText("Hotkeys ready").waitFor();
  expect(await view.calls("setAppSetting")).toEqual([["hotkeyLock", "1"]]);
});

test("a screen reader hears what starts, stops and locks", async () => {
  const live = view.page.locator("[aria-live=polite]");
  await view.report({ status: { autoClicking: true } });
  await expect.poll(() => live.textContent()).toBe("Auto clicker started");
  await view.report({ status: { autoClicking: false, unlocked: false } });
  await expect.poll(() => live.textContent()).toContain("Hotkeys locked, F10 unlocks");
});

test("two tools on one key are told apart from a working setup", async () => {
  await view.report({ status: { hkAuto: "F8" } });
  await view.page.getByText("Same key as “Record macro”, which takes it").first().waitFor();
  await view.page.getByText("Once it runs, only the stop button here stops it.").first().waitFor();
});

test("a hotkey on the left button is put back with Enter alone", async () => {
  await view.report({ status: { hkAuto: "Left Mouse" } });
  await view.page.getByText("is on the left mouse button").waitFor();
  await view.page.keyboard.press("Enter");
  await expect.poll(() => view.calls("resetHotkeys")).toHaveLength(1);
  await view.page.getByText("is on the left mouse button").waitFor({ state: "detached" });
});

test("the status is asked for one call at a time", async () => {
  const asked = async () => (await view.calls("getTrackerStatus")).length;
  await expect.poll(asked).toBeGreaterThan(5);
  expect((await view.program()).mostStatusCallsUnderWay).toBe(1);
});
