import { expect, test } from "vitest";
import { useLiveViews } from "./views";

// What the tools would do to the page itself when it is in front.
const open = useLiveViews();

test("the clicks at the cursor do not stop the clicker that was started with the mouse", async () => {
  const view = await open();
  await view.page.getByRole("button", { name: "Start clicking" }).click();
  const stop = view.page.getByRole("button", { name: "Stop clicking" });
  await stop.waitFor();
  for (let i = 0; i < 5; i++) await view.page.mouse.down().then(() => view.page.mouse.up());
  expect(await view.calls("stopSpammer")).toHaveLength(0);
  await view.page.mouse.move(200, 500);
  await stop.click();
  await expect.poll(() => view.calls("stopSpammer")).toHaveLength(1);
});

test("clicks at the cursor change no setting on their way", async () => {
  const view = await open({ status: { autoClicking: true } });
  await view.page.getByText("On this page only the stop button takes them.").waitFor();
  const at = (await view.page.getByText("Middle", { exact: true }).boundingBox())!;
  await view.page.mouse.click(at.x + at.width / 2, at.y + at.height / 2);
  await view.page.waitForTimeout(500);
  expect(await view.calls("updateSpammer")).toHaveLength(0);
});

test("a slow clicker leaves the page to its user", async () => {
  const view = await open({ status: { autoClicking: true }, settings: { ss: 5 } });
  await view.page.getByText("Middle", { exact: true }).click();
  await expect.poll(() => view.calls("updateSpammer")).toEqual([["0,0,5,5,2,0,1,10,0"]]);
});

test("a clicker at a fixed point is stopped with the button that started it", async () => {
  const view = await open({ settings: { locMode: 1, fixedX: 5, fixedY: 5 } });
  await view.page.getByRole("button", { name: "Start clicking" }).click();
  await view.page.getByRole("button", { name: "Stop clicking" }).click();
  await expect.poll(() => view.calls("stopSpammer")).toHaveLength(1);
});

test("the pressed keys do not operate the page", async () => {
  const view = await open();
  await view.page.getByRole("button", { name: "Start pressing" }).press("Space");
  await view.page.getByRole("button", { name: "Stop pressing" }).waitFor();
  await view.page.keyboard.press("Space");
  await view.page.getByLabel("Key interval, milliseconds").focus();
  await view.page.keyboard.type("77");
  await view.page.waitForTimeout(400);
  expect(await view.calls("stopKeySpam")).toHaveLength(0);
  expect(await view.calls("updateKeySpam")).toHaveLength(0);
  await view.page.getByRole("button", { name: "Stop pressing" }).press("Enter");
  await expect.poll(() => view.calls("stopKeySpam")).toHaveLength(1);
});
