import { expect, test } from "vitest";
import { useLiveViews } from "./views";
import type { View, ViewOptions } from "./harness";
import type { Locator } from "playwright-core";

const open = useLiveViews({ height: 900 });
let view: View;
let panel: Locator;

async function show(options: ViewOptions = {}): Promise<void> {
  view = await open(options);
  panel = view.page.locator("#panel-profile");
  await panel.getByText("in use", { exact: true }).waitFor();
}

const two = { profiles: ["Default Tracking Profile", "Fishing"], current: 1 };

test("a profile is added with the name as typed, without what a value cannot carry", async () => {
  await show();
  const field = panel.getByLabel("Name of the new profile");
  await field.pressSequentially('My ["best\\"] run, v2');
  expect(await field.inputValue()).toBe("My best run, v2");
  await field.press("Enter");
  await panel.getByRole("radio", { name: "My best run, v2" }).waitFor();
  expect(await view.calls("addProfile")).toEqual([["My best run, v2"]]);
  expect(await field.inputValue()).toBe("");
});

test("a blank name adds nothing", async () => {
  await show();
  await panel.getByLabel("Name of the new profile").fill("   ");
  expect(await panel.getByRole("button", { name: "Add" }).isDisabled()).toBe(true);
});

test("a full list says so", async () => {
  await show({ profiles: ["Default Tracking Profile", "A", "A"] });
  await panel.getByText("All 3 profiles are in use. Delete one to add another.").waitFor();
  expect(await panel.getByLabel("Name of the new profile").count()).toBe(0);
});

test("switching shows the settings of the other profile", async () => {
  await show(two);
  await panel.getByText("Default Tracking Profile").click();
  await expect.poll(() => view.calls("switchProfile")).toEqual([[0]]);
  await panel.locator(".current", { hasText: "Default Tracking Profile" }).waitFor();
  const asked = (await view.program()).calls.map((call) => call.name);
  expect(asked.lastIndexOf("getSettings")).toBeGreaterThan(asked.indexOf("switchProfile"));
});

test("a switch that the program refuses is told and undone", async () => {
  await show(two);
  await view.page.evaluate(() => {
    (window as unknown as Record<string, unknown>)["switchProfile"] = async () => "";
  });
  await panel.getByText("Default Tracking Profile").click();
  await panel.getByText("The profile could not be changed.").waitFor();
  expect(await panel.getByRole("radio", { name: "Fishing" }).isChecked()).toBe(true);
});

test("the default profile is cleared after a question and never deleted", async () => {
  await show({ ...two, current: 0, status: { count: 12 } });
  expect(await panel.getByRole("button", { name: "Delete this profile…" }).count()).toBe(0);
  await panel.getByRole("button", { name: "Clear this profile…" }).click();
  await panel.getByText("Clear “Default Tracking Profile”?").waitFor();
  await panel.getByText("Its macro of 12 events is lost and its clicker and key settings").waitFor();
  await view.shot("profile_clearing", true);
  await view.page.keyboard.press("Enter");
  expect(await view.calls("clearProfile")).toHaveLength(0);
  await panel.getByRole("button", { name: "Clear this profile…" }).click();
  await panel.getByRole("button", { name: "Clear profile", exact: true }).click();
  await expect.poll(() => view.calls("clearProfile")).toHaveLength(1);
  expect(await view.calls("deleteProfile")).toHaveLength(0);
});

test("another profile is deleted after a question", async () => {
  await show(two);
  await panel.getByRole("button", { name: "Delete this profile…" }).click();
  await panel.getByText("Delete “Fishing”?").waitFor();
  await panel.getByRole("button", { name: "Delete profile", exact: true }).click();
  await panel.getByText("Fishing").waitFor({ state: "detached" });
  expect(await view.calls("deleteProfile")).toHaveLength(1);
});

test("the last profile can be cleared only", async () => {
  await show({ profiles: ["Fishing"] });
  expect(await panel.getByRole("button", { name: "Delete this profile…" }).count()).toBe(0);
  expect(await panel.getByRole("button", { name: "Clear this profile…" }).count()).toBe(1);
});

test("profiles rest while a macro plays or is recorded", async () => {
  await show({ ...two, status: { state: "Playing" } });
  await panel.getByText("Stop the macro to change profiles.").waitFor();
  expect(await panel.getByRole("radio", { name: "Fishing" }).isDisabled()).toBe(true);
  await view.report({ status: { state: "Recording" } });
  await panel.getByText("Stop the recording to change profiles.").waitFor();
});
