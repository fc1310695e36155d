import { expect, test } from "vitest";
import { useLiveViews } from "./views";

const open = useLiveViews({ height: 1100 });

test("a key is added by pressing it", async () => {
  const view = await open();
  await view.page.getByText("1 of 3 keys").waitFor();
  await view.page.getByRole("button", { name: "Add key" }).click();
  await view.page.getByText("Press a key… Esc cancels").waitFor();
  await view.shot("keys_capturing", true);
  expect(await view.calls("reassignKey")).toEqual([["keyspamtarget"]]);
  await view.report({ status: { reassigning: "", keySpamTargets: ["Space", "A"] } });
  await view.page.getByText("2 of 3 keys").waitFor();
  await view.page.getByText("Space, then A, until stopped").waitFor();
});

test("a key is removed by its place, so that one of two equal keys can go", async () => {
  const view = await open({ status: { keySpamTargets: ["A", "A", "B"] } });
  await view.page.getByRole("button", { name: "Remove A, key 2" }).click();
  await view.page.getByText("2 of 3 keys").waitFor();
  expect(await view.calls("removeKeySpamTarget")).toEqual([[1]]);
  const focused = () => view.page.evaluate(() => document.activeElement?.textContent?.trim());
  expect(await focused()).toBe("Add key");
});

test("a full list says so and takes no further key", async () => {
  const view = await open({ status: { keySpamTargets: ["A", "B", "C"] } });
  await view.page.getByText("All 3 places are taken. Remove a key to add another one.").waitFor();
  await view.page.getByRole("button", { name: "Add key" }).click({ force: true });
  expect(await view.calls("reassignKey")).toEqual([]);
});

test("without a key there is nothing to start", async () => {
  const view = await open({ status: { keySpamTargets: [] } });
  await view.page.getByText("No key yet: add one to start").waitFor();
  expect(await view.page.getByRole("button", { name: "Start pressing" }).isDisabled()).toBe(true);
});

test("keys are pressed in turn or together", async () => {
  const view = await open({ status: { keySpamTargets: ["Ctrl", "C"] } });
  await view.page.getByText("All together").click();
  await view.page.getByText("Ctrl + C together, until stopped").waitFor();
  await view.page.getByText("about 200 chords a second").waitFor();
  await view.page.getByText("In turn").click();
  await view.page.getByText("Ctrl, then C, until stopped").waitFor();
  expect(await view.calls("setKeySpamChordMode")).toEqual([["1"], ["0"]]);
});

test("interval and count go out together", async () => {
  const view = await open();
  const panel = view.page.locator("#panel-keyspam");
  await panel.getByLabel("Key interval, seconds").fill("2");
  await panel.getByText("Count", { exact: true }).click();
  await panel.getByLabel("Number of key presses").fill("4");
  await panel.getByText("Space: 4 key presses, then stops").waitFor();
  await expect
    .poll(async () => (await view.calls("updateKeySpam")).at(-1))
    .toEqual(["0,0,2,5,0,4"]);
});

test("the macro panel tells which key to press in each state", async () => {
  const view = await open();
  const panel = view.page.locator("#panel-tracker");
  await panel.getByText("No macro yet").waitFor();
  await view.report({ status: { state: "Recording", count: 12 } });
  await panel.getByText("Recording: 12 events").waitFor();
  await view.report({ status: { state: "Playing" } });
  await panel.getByText("Playing 12 events").waitFor();
  await view.report({ status: { state: "Idle", count: 1 } });
  await panel.getByText("1 event recorded").waitFor();
  await panel.getByText("records a new macro in place of this one").waitFor();
  await view.report({ settings: { tloop: true, tspd: 1.5, tmv: false } });
  await panel.getByText("again and again, 500 ms between, at 1.5 × speed").waitFor();
  await panel.getByText("clicks, wheel, keys").waitFor();
  expect(await panel.getByRole("button", { name: /record|play/i }).count()).toBe(2);
});
