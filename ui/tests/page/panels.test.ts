import { expect, test } from "vitest";
import { useLiveViews } from "./views";
import type { View } from "./harness";

const open = useLiveViews();
let view: View;

const shownOrder = () =>
  view.page.evaluate(() =>
    [...document.querySelectorAll("#dashboard > .panel")].map((panel) => panel.id),
  );
const detachable = [
  "detachPanel",
  "getTrackerStatus",
  "getSettings",
  "getAppSettings",
  "setPanelOrder",
  "setAppSetting",
];
const usual = ["panel-spammer", "panel-keyspam", "panel-tracker", "panel-profile", "panel-ui"];
const minimised = Object.fromEntries([["minimizedPanels", usual]]);

test("a panel is minimised and shown again, and the program is told", async () => {
  view = await open();
  const button = view.page.getByRole("button", { name: "Auto clicker", exact: true });
  const body = view.page.locator("#panel-spammer-body");
  await button.click();
  await body.waitFor({ state: "hidden" });
  expect(await button.getAttribute("aria-expanded")).toBe("false");
  await button.press("Enter");
  await body.waitFor({ state: "visible" });
  expect(await view.calls("setAppSetting")).toEqual([
    ["min:panel-spammer", "1"],
    ["min:panel-spammer", "0"],
  ]);
});

test("saved order and minimised panels are there at start, whatever is missing or unknown", async () => {
  view = await open({
    preferences: {
      panelOrder: ["panel-ui", "bogus", "panel-tracker"],
      minimizedPanels: ["panel-ui"],
    },
  });
  await expect
    .poll(shownOrder)
    .toEqual(["panel-ui", "panel-tracker", "panel-spammer", "panel-keyspam", "panel-profile"]);
  await view.page.locator("#panel-ui-body").waitFor({ state: "hidden" });
  expect(await view.calls("setPanelOrder")).toEqual([]);
});

test("arrow keys on the grip move a panel and keep the focus on it", async () => {
  view = await open({ preferences: minimised });
  const grip = view.page.getByRole("button", { name: "Move Auto clicker" });
  await grip.press("ArrowUp");
  await grip.press("ArrowDown");
  expect(await shownOrder()).toEqual([
    "panel-keyspam",
    "panel-spammer",
    "panel-tracker",
    "panel-profile",
    "panel-ui",
  ]);
  expect(await view.calls("setPanelOrder")).toEqual([
    ["panel-keyspam,panel-spammer,panel-tracker,panel-profile,panel-ui"],
  ]);
  expect(await grip.evaluate((element) => element === document.activeElement)).toBe(true);
  const live = view.page.locator("[aria-live=polite]");
  await expect.poll(() => live.textContent()).toBe("Auto clicker moved to place 2 of 5");
});

// While a panel is dragged, a second element of the same id follows the cursor.
const orderOnTheWay = () =>
  view.page.evaluate(() =>
    [...document.querySelectorAll("#dashboard > .panel:not(.sortable-drag)")].map((p) => p.id),
  );

// Presses the header of one panel and lets it go over that of another, once the others have made
// room: the library looks where the cursor is only now and then.
async function drag(from: string, to: string, expected: string[]): Promise<void> {
  const middle = async (id: string) => {
    const box = (await view.page.locator(`#${id} h2`).boundingBox())!;
    return { x: box.x + 30, y: box.y + box.height / 2 };
  };
  const start = await middle(from);
  const end = await middle(to);
  await view.page.mouse.move(start.x, start.y);
  await view.page.mouse.down();
  for (let step = 1; step <= 12; step++) {
    const part = step / 12;
    const x = start.x + (end.x - start.x) * part;
    await view.page.mouse.move(x, start.y + (end.y - start.y + 10) * part);
  }
  await expect
    .poll(async () => (await orderOnTheWay()).slice(0, expected.length))
    .toEqual(expected);
  await view.shot(`dragging_${to}`);
  await view.page.mouse.up();
}

test("a panel is dragged by its header to another place", async () => {
  view = await open({ preferences: { ...minimised, disableAnimations: true } });
  await view.page.locator("#panel-spammer-body").waitFor({ state: "hidden" });
  const moved = ["panel-keyspam", "panel-tracker", "panel-spammer", "panel-profile", "panel-ui"];
  await drag("panel-spammer", "panel-tracker", moved);
  await expect.poll(() => view.calls("setPanelOrder")).toEqual([[moved.join(",")]]);
  expect(await shownOrder()).toEqual(moved);
  await view.page.getByRole("button", { name: "Move Macro" }).press("ArrowUp");
  expect((await shownOrder()).slice(0, 2)).toEqual(["panel-tracker", "panel-keyspam"]);
});

test("a panel is dragged from one column to the other", async () => {
  view = await open({ width: 900, height: 700, preferences: { disableAnimations: true } });
  const moved = ["panel-keyspam", "panel-spammer"];
  await drag("panel-spammer", "panel-keyspam", moved);
  await expect.poll(async () => (await shownOrder()).slice(0, 2)).toEqual(moved);
  expect(await view.calls("setPanelOrder")).toHaveLength(1);
});

test("the overview leads to a tool and opens its panel", async () => {
  view = await open({ preferences: minimised });
  await view.page.getByRole("button", { name: /^Macro Off/ }).click();
  await view.page.locator("#panel-tracker-body").waitFor({ state: "visible" });
});

test("a detached panel leaves the page and comes back when its window has gone", async () => {
  view = await open({ only: detachable });
  await view.page.getByRole("button", { name: "Show Key spammer in a window of its own" }).click();
  const panel = view.page.locator("#panel-keyspam");
  await panel.waitFor({ state: "hidden" });
  const [call] = await view.calls("detachPanel");
  expect(call?.slice(0, 2)).toEqual(["Key spammer", "panel-keyspam"]);
  expect(call?.[4]).toBe("ravelin");
  await view.page.getByRole("button", { name: "Move Auto clicker" }).press("ArrowDown");
  expect((await shownOrder()).slice(0, 3)).toEqual([
    "panel-keyspam",
    "panel-tracker",
    "panel-spammer",
  ]);
  await view.report({ status: { restore: ["panel-keyspam"] } });
  await panel.waitFor({ state: "visible" });
});

test("a panel let go outside of the window gets one of its own", async () => {
  view = await open({ only: detachable, preferences: minimised });
  const box = (await view.page.locator("#panel-tracker h2").boundingBox())!;
  await view.page.mouse.move(box.x + 20, box.y + 10);
  await view.page.mouse.down();
  await view.page.mouse.move(box.x + 20, box.y + 40, { steps: 4 });
  await view.page.mouse.move(600, 300, { steps: 8 });
  const hint = view.page.getByText("Let go to show Macro in a window of its own");
  await hint.waitFor();
  await view.shot("tear_off_hint");
  await view.page.mouse.move(200, 300, { steps: 4 });
  await hint.waitFor({ state: "detached" });
  await view.page.mouse.move(600, 300, { steps: 4 });
  await hint.waitFor();
  await view.page.mouse.up();
  await view.page.locator("#panel-tracker").waitFor({ state: "hidden" });
  await hint.waitFor({ state: "detached" });
  const scale = await view.page.evaluate(() => window.devicePixelRatio);
  const [call] = await view.calls("detachPanel");
  expect(call?.slice(0, 2)).toEqual(["Macro", "panel-tracker"]);
  expect(Number(call?.[2])).toBeGreaterThanOrEqual(600 * scale);
  expect(await view.calls("setPanelOrder")).toEqual([]);
});

test("after a panel was let go outside of the window the next click counts", async () => {
  view = await open({ only: detachable, preferences: minimised });
  const box = (await view.page.locator("#panel-tracker h2").boundingBox())!;
  await view.page.mouse.move(box.x + 20, box.y + 10);
  await view.page.mouse.down();
  await view.page.mouse.move(600, box.y + 10, { steps: 8 });
  await view.page.mouse.up();
  await view.page.locator("#panel-tracker").waitFor({ state: "hidden" });
  await view.page.getByRole("button", { name: "Show Key spammer in a window of its own" }).click();
  await view.page.locator("#panel-keyspam").waitFor({ state: "hidden" });
});

test("a panel without use of its own shows no hint and stays when it is let go outside", async () => {
  view = await open({ only: detachable, preferences: minimised });
  const box = (await view.page.locator("#panel-profile h2").boundingBox())!;
  await view.page.mouse.move(box.x + 20, box.y + 10);
  await view.page.mouse.down();
  await view.page.mouse.move(box.x + 20, box.y - 20, { steps: 4 });
  await view.page.mouse.move(600, 300, { steps: 8 });
  expect(await view.page.getByText("Let go to show").count()).toBe(0);
  await view.page.mouse.up();
  expect(await view.calls("detachPanel")).toEqual([]);
  expect(await view.page.locator("#panel-profile").isVisible()).toBe(true);
});

test("detached with the keyboard, a panel's window opens at its button", async () => {
  view = await open({ only: detachable });
  const button = view.page.getByRole("button", { name: "Show Macro in a window of its own" });
  await button.focus();
  const box = (await button.boundingBox())!;
  const [left, top, scale] = await view.page.evaluate(() => [screenX, screenY, devicePixelRatio]);
  await button.press("Enter");
  await view.page.locator("#panel-tracker").waitFor({ state: "hidden" });
  const [call] = await view.calls("detachPanel");
  expect(call?.slice(2, 4)).toEqual([
    Math.round((left! + box.x) * scale!),
    Math.round((top! + box.y) * scale!),
  ]);
});

test("a panel that cannot be detached stays, and the program's reason is shown", async () => {
  view = await open({ only: detachable });
  await view.page.evaluate(() => {
    (window as unknown as Record<string, unknown>)["detachPanel"] = async () =>
      "The window for this panel could not be opened.";
  });
  await view.page.getByRole("button", { name: "Show Macro in a window of its own" }).click();
  await view.page.getByText("The window for this panel could not be opened.").waitFor();
  expect(await view.page.locator("#panel-tracker").isVisible()).toBe(true);
  await view.page.getByRole("button", { name: "Close" }).click();
  await view.page.getByText("could not be opened").waitFor({ state: "detached" });
});

test("a panel window above the page shows where it would go", async () => {
  view = await open();
  await view.report({ status: { panelHover: true } });
  await view.page.getByText("Drop the panel here to put it back").waitFor();
  await view.shot("drop_target");
  await view.report({ status: { panelHover: false } });
  await view.page.getByText("Drop the panel here").waitFor({ state: "detached" });
});
