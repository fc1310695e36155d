import { afterAll, afterEach, beforeAll, expect, test } from "vitest";
import { launch, View, type ViewOptions } from "./harness";
import type { Browser } from "playwright-core";

let browser: Browser;
let view: View;
beforeAll(async () => void (browser = await launch()));
afterAll(() => browser.close());
afterEach(async () => {
  expect(view.errors).toEqual([]);
  await view.close();
});

async function open(options: ViewOptions = {}): Promise<void> {
  view = await View.open(browser, options);
  await view.page.getByText("Hotkeys ready").waitFor();
}

const shownOrder = () =>
  view.page.evaluate(() =>
    [...document.querySelectorAll("#dashboard > .panel")].map((panel) => panel.id),
  );
const usual = ["panel-spammer", "panel-keyspam", "panel-tracker", "panel-profile", "panel-ui"];
const minimised = Object.fromEntries([["minimizedPanels", usual]]);

test("a panel is minimised and shown again, and the program is told", async () => {
  await open();
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
  await open({
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
  await open({ preferences: minimised });
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

test("a panel is dragged by its header to another place", async () => {
  await open({ preferences: { ...minimised, disableAnimations: true } });
  await view.page.locator("#panel-spammer-body").waitFor({ state: "hidden" });
  const middle = async (id: string) => {
    const box = (await view.page.locator(`#${id} h2`).boundingBox())!;
    return { x: box.x + 30, y: box.y + box.height / 2 };
  };
  const from = await middle("panel-spammer");
  const to = await middle("panel-tracker");
  await view.page.mouse.move(from.x, from.y);
  await view.page.mouse.down();
  for (let step = 1; step <= 12; step++) {
    await view.page.mouse.move(from.x, from.y + ((to.y - from.y + 10) * step) / 12);
    await view.page.waitForTimeout(20);
  }
  await view.shot("dragging");
  await view.page.mouse.up();
  const moved = ["panel-keyspam", "panel-tracker", "panel-spammer", "panel-profile", "panel-ui"];
  await expect.poll(() => view.calls("setPanelOrder")).toEqual([[moved.join(",")]]);
  expect(await shownOrder()).toEqual(moved);
  await view.page.getByRole("button", { name: "Move Macro" }).press("ArrowUp");
  expect((await shownOrder()).slice(0, 2)).toEqual(["panel-tracker", "panel-keyspam"]);
});

test("the overview leads to a tool and opens its panel", async () => {
  await open({ preferences: minimised });
  await view.page.getByRole("button", { name: /^Macro Off/ }).click();
  await view.page.locator("#panel-tracker-body").waitFor({ state: "visible" });
});

test("a detached panel leaves the page and comes back when its window has gone", async () => {
  const methods = ["detachPanel", "getTrackerStatus", "getSettings", "getAppSettings"];
  await open({ only: [...methods, "setPanelOrder", "setAppSetting"] });
  await view.page.getByRole("button", { name: "Show Key spammer in a window of its own" }).click();
  const panel = view.page.locator("#panel-keyspam");
  await panel.waitFor({ state: "hidden" });
  const [call] = await view.calls("detachPanel");
  expect(call?.[0]).toBe("panel-keyspam");
  expect(call?.[1]).toBe("Key spammer");
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

test("a panel window above the page shows where it would go", async () => {
  await open();
  await view.report({ status: { panelHover: true } });
  await view.page.getByText("Drop the panel here to put it back").waitFor();
  await view.shot("drop_target");
  await view.report({ status: { panelHover: false } });
  await view.page.getByText("Drop the panel here").waitFor({ state: "detached" });
});
