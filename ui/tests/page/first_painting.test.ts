import { expect, test } from "vitest";
import { panelScript, panelWindowMethods } from "./panel_window";
import { useLiveViews, useViews } from "./views";
import type { View } from "./harness";

const open = useLiveViews();
const openPanel = useViews({ width: 450, height: 400, only: [...panelWindowMethods, "getEnvironment", "pagePainted"] });

const names = async (view: View) => (await view.program()).calls.map(({ name }) => name);
const painted = (view: View) => expect.poll(async () => (await view.calls("pagePainted")).length).toBe(1);
const visibility = (view: View) => view.page.evaluate(() => getComputedStyle(document.body).visibility);

test("the page tells once that it is painted, after it has read how it shall look", async () => {
  const view = await open({ preferences: { seenWarnings: ["theme:1:daylight"] } });
  await painted(view);
  const order = await names(view);
  const at = order.indexOf("pagePainted");
  for (const question of ["getAppSettings", "getProfiles", "getEnvironment"]) {
    expect(order.indexOf(question), question).toBeGreaterThanOrEqual(0);
    expect(order.indexOf(question), question).toBeLessThan(at);
  }
});

test("a program that does not answer everything is told all the same", async () => {
  await painted(await open({ rejecting: ["getAppSettings", "getEnvironment"] }));
});

test("a window of one panel tells it after it has asked for its size", async () => {
  const view = await openPanel({ appended: panelScript("panel-spammer", "ravelin") });
  await painted(view);
  const order = await names(view);
  expect(order.indexOf("resizeWindow")).toBeGreaterThanOrEqual(0);
  expect(order.indexOf("resizeWindow")).toBeLessThan(order.indexOf("pagePainted"));
  expect(await visibility(view)).toBe("visible");
});

test("a window of one panel shows nothing before its panel is chosen", async () => {
  const view = await openPanel({ appended: "" });
  await view.page.locator("#panel-spammer").waitFor({ state: "attached" });
  expect(await visibility(view)).toBe("hidden");
});

test("the main window's page needs nobody to be visible", async () => {
  expect(await visibility(await open())).toBe("visible");
});
