import { expect, test } from "vitest";
import { useLiveViews } from "./views";
import type { View, ViewOptions } from "./harness";
import type { Locator } from "playwright-core";

const open = useLiveViews({ height: 900 });
let view: View;
let panel: Locator;

async function show(options: ViewOptions = {}): Promise<void> {
  view = await open(options);
  panel = view.page.locator("#panel-ui");
}

test.each([
  ["Keep the window on top", "alwaysOnTop", "1"],
  ["Start when I sign in", "launchOnStartup", "1"],
  ["Start minimised", "startMinimized", "1"],
  ["Hotkeys on", "hotkeysEnabled", "0"],
  ["Hotkey lock", "hotkeyLock", "0"],
  ["Stop the tools with the macro", "stopToolsWithMacro", "0"],
  ["No animations", "disableAnimations", "1"],
  ["Show warnings", "showWarnings", "0"],
])("the switch “%s” sets %s to %s", async (name, key, value) => {
  await show();
  const control = panel.getByRole("switch", { name });
  await control.focus();
  await control.press("Space");
  await expect.poll(() => view.calls("setAppSetting")).toEqual([[key, value]]);
  await expect.poll(() => control.isChecked()).toBe(value === "1");
});

test("saved switches show at start", async () => {
  await show({ preferences: { alwaysOnTop: true, showWarnings: false } });
  const checked = (name: string) => panel.getByRole("switch", { name }).isChecked();
  await expect.poll(() => checked("Keep the window on top")).toBe(true);
  expect(await checked("Show warnings")).toBe(false);
});

test("a switch that the program refuses goes back", async () => {
  await show({ rejecting: ["setAppSetting"] });
  const control = panel.getByRole("switch", { name: "Keep the window on top" });
  await control.click();
  await expect.poll(() => control.isChecked()).toBe(false);
});

test("switched off animations stay still", async () => {
  await show({ preferences: { disableAnimations: true }, status: { autoClicking: true } });
  const dot = view.page.locator(".bar .dot").first();
  await expect
    .poll(() => dot.evaluate((element) => getComputedStyle(element).animationName))
    .toBe("none");
});

test("hotkeys that are off are told and can be switched on", async () => {
  await show({ preferences: { hotkeysEnabled: false } });
  await view.page.getByText("Hotkeys are off.").waitFor();
  await view.shot("hotkeys_off");
  await view.page.getByRole("button", { name: "Turn on" }).click();
  await view.page.getByText("Hotkeys ready").waitFor();
});

test("a warning that is not wanted any more stays away", async () => {
  await show({ preferences: { hotkeysEnabled: false } });
  const warning = view.page.getByText("Once it runs, only the stop button here stops it.");
  await warning.first().waitFor();
  await view.page.getByRole("button", { name: "Don’t show again" }).first().click();
  await expect.poll(() => warning.count()).toBe(0);
  expect(await view.calls("markWarningSeen")).toEqual([["no-stop-key"]]);
});

test("all hotkeys can be put back", async () => {
  await show({ status: { hkAuto: "Middle Mouse", hkUnlock: "F1" } });
  await view.page.getByText("Middle Mouse starts").waitFor();
  await panel.getByRole("button", { name: "Reset hotkeys" }).click();
  await view.page.getByText("F6 starts").waitFor();
});

test("links are opened by the program", async () => {
  await show();
  await panel.getByRole("button", { name: "Documentation" }).click();
  await panel.getByRole("button", { name: "Community chat" }).click();
  await expect.poll(() => view.calls("openLink")).toEqual([["docs"], ["discord"]]);
});

test("a chosen theme shows at once and is there at the next start", async () => {
  await show();
  await panel.getByLabel("Theme").selectOption("daylight");
  await expect.poll(() => view.page.evaluate(() => window.currentThemeKey)).toBe("daylight");
  const kept = (await view.program()).preferences["seenWarnings"];
  await show({ preferences: { seenWarnings: kept } });
  await expect.poll(() => panel.getByLabel("Theme").inputValue()).toBe("daylight");
  expect(await view.page.evaluate(() => document.documentElement.dataset["theme"])).toBe("daylight");
});

test("the program can set a theme, and an unknown one is the default", async () => {
  await show();
  await view.page.evaluate(() => window.applyTheme?.("contrast"));
  expect(await view.page.evaluate(() => window.currentThemeKey)).toBe("contrast");
  await view.page.evaluate(() => window.applyTheme?.("no such theme"));
  expect(await view.page.evaluate(() => window.currentThemeKey)).toBe("ravelin");
});

test("the settings say under which licence Ravelin stands", async () => {
  await show();
  await expect.poll(() => panel.getByText(/free software under the MIT License/).isVisible()).toBe(true);
});
