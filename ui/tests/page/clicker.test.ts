import { beforeEach, expect, test } from "vitest";
import { useLiveViews } from "./views";
import type { View } from "./harness";

const open = useLiveViews();
let view: View;
beforeEach(async () => {
  view = await open();
  await view.page.getByText("Hotkeys ready").waitFor();
});

const panel = () => view.page.locator("#panel-spammer");
const lastSent = async () => (await view.calls("updateSpammer")).at(-1);

test("start and stop are one button that follows the program", async () => {
  await view.page.getByRole("button", { name: "Start clicking" }).press("Enter");
  await view.page.getByRole("button", { name: "Stop clicking" }).waitFor();
  expect(await view.calls("startSpammer")).toHaveLength(1);
  await view.report({ status: { autoClicking: false } });
  await view.page.getByRole("button", { name: "Start clicking" }).waitFor();
  expect(await view.calls("stopSpammer")).toHaveLength(0);
});

test("an interval is sent while it is typed and carried over when the field is left", async () => {
  const field = panel().getByLabel("Interval, milliseconds");
  await field.fill("1500");
  await view.page.getByText("Every 1.5 s · about 40 clicks a minute").waitFor();
  await expect.poll(lastSent).toEqual(["0,0,1,500,0,0,1,10,0"]);
  await field.press("Tab");
  expect(await field.inputValue()).toBe("500");
  expect(await panel().getByLabel("Interval, seconds").inputValue()).toBe("1");
});

test("an empty or odd entry is never sent and gives way to the last good one", async () => {
  const field = panel().getByLabel("Interval, milliseconds");
  await field.fill("");
  await field.pressSequentially("-.e");
  await view.page.waitForTimeout(400);
  expect(await view.calls("updateSpammer")).toHaveLength(0);
  await field.press("Tab");
  expect(await field.inputValue()).toBe("5");
  await field.fill("0");
  await field.press("Tab");
  expect(await field.inputValue()).toBe("1");
  await expect.poll(lastSent).toEqual(["0,0,0,1,0,0,1,10,0"]);
});

test("every setting reaches the program, and a waiting edit goes out before the start", async () => {
  const { page } = view;
  await page.getByText("Right", { exact: true }).click();
  await page.getByText("Double", { exact: true }).click();
  await panel().getByText("Count", { exact: true }).click();
  await page.getByLabel("Number of clicks").fill("3");
  await page.getByRole("button", { name: "Start clicking" }).click();
  const order = (await view.program()).calls.map((call) => call.name);
  expect(order.lastIndexOf("updateSpammer")).toBeLessThan(order.indexOf("startSpammer"));
  expect(await lastSent()).toEqual(["0,0,0,5,1,1,0,3,0"]);
  await page.getByText("3 right double clicks at the cursor, then stops").waitFor();
});

test("settings that change in the program show in the page", async () => {
  await view.report({ settings: { sms: 20, sbtn: 2, locMode: 1, fixedX: 640, fixedY: 360 } });
  await view.page.getByText("Middle clicks at 640, 360 until stopped").waitFor();
  expect(await view.page.getByRole("radio", { name: "Middle" }).isChecked()).toBe(true);
  expect(await view.calls("updateSpammer")).toHaveLength(0);
});

test("picking a location shows the wait and ends with the new point", async () => {
  const { page } = view;
  await page.getByText("Fixed point").click();
  await page.getByRole("button", { name: "Pick location" }).click();
  await page.getByText("Click anywhere on the screen… right click cancels").waitFor();
  await view.shot("clicker_picking", true);
  expect(await view.calls("pickLocation")).toHaveLength(1);
  await view.report({ settings: { fixedX: 812, fixedY: 344, locMode: 1 } });
  await page.getByText("x 812 · y 344").waitFor();
});

test("a press that reaches the page shows that picking is over", async () => {
  const { page } = view;
  await page.getByText("Fixed point").click();
  await page.getByRole("button", { name: "Pick location" }).click();
  const hint = page.getByText("Click anywhere on the screen… right click cancels");
  await hint.waitFor();
  await page.getByRole("heading", { name: "Ravelin" }).click();
  await hint.waitFor({ state: "detached" });
});

test("arrow keys step a number", async () => {
  const field = panel().getByLabel("Interval, milliseconds");
  await field.press("ArrowUp");
  await field.press("PageUp");
  expect(await field.inputValue()).toBe("16");
  await expect.poll(lastSent).toEqual(["0,0,0,16,0,0,1,10,0"]);
});
