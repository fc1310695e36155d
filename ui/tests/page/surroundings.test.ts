import { expect, test } from "vitest";
import { panelScript, panelWindowMethods } from "./panel_window";
import { useLiveViews, useViews } from "./views";

const open = useLiveViews();
const openPanel = useViews({
  width: 450,
  height: 400,
  only: [...panelWindowMethods, "getEnvironment"],
  appended: panelScript("panel-spammer", "ravelin"),
});

test.each([
  ["the size that Windows shows everything at", 1.5, 1.5, 1],
  ["a larger text size", 1.3, 1, 1.3],
  ["both", 1.95, 1.5, 1.3],
])("a panel's window fits its panel at %s", async (_, pixelRatio, scale, expected) => {
  const view = await openPanel({ pixelRatio, environment: { scale } });
  const box = (await view.page.locator("#panel-spammer").boundingBox())!;
  const asked = async () => (await view.calls("resizeWindow")).at(-1);
  await expect.poll(asked).toBeDefined();
  const [width, height] = (await asked()) as [number, number];
  expect(width).toBe(Math.ceil(450 * expected));
  expect(height).toBeGreaterThanOrEqual(Math.floor(box.height * expected));
  expect(height).toBeLessThanOrEqual(Math.ceil((box.height + 1) * expected));
});

test("a panel that is asked for its size again and again asks for the same", async () => {
  const view = await openPanel({ pixelRatio: 1.5, environment: { scale: 1.5 } });
  await expect.poll(async () => (await view.calls("resizeWindow")).length).toBe(1);
  for (let i = 0; i < 5; i++) await view.page.evaluate(() => window.resizeHostWindow?.());
  await expect.poll(async () => (await view.calls("resizeWindow")).length).toBe(6);
  const sizes = (await view.calls("resizeWindow")).map(String);
  expect(new Set(sizes).size).toBe(1);
});

test("left and right are shown and stored exchanged while the buttons are", async () => {
  const view = await open({ environment: { buttonsSwapped: true } });
  const panel = view.page.locator("#panel-spammer");
  const buttons = panel.getByRole("group", { name: "Mouse button" });
  await buttons.getByRole("radio", { name: "Right", checked: true }).waitFor();
  await panel.getByText("Right clicks at the cursor until stopped").waitFor();
  await buttons.getByText("Left").click();
  await expect.poll(async () => (await view.calls("updateSpammer")).at(-1)).toEqual(["0,0,0,5,1,0,1,10,0"]);
  await buttons.getByText("Middle").click();
  await expect.poll(async () => (await view.calls("updateSpammer")).at(-1)).toEqual(["0,0,0,5,2,0,1,10,0"]);
  await view.page.getByText("A macro plays left and right clicks exchanged.").waitFor();
});

test("the program's theme holds until one is chosen", async () => {
  const theme = (view: Awaited<ReturnType<typeof open>>) =>
    view.page.evaluate(() => document.documentElement.dataset["theme"]);
  const first = await open({ environment: { themeKey: "daylight" } });
  await expect.poll(() => theme(first)).toBe("daylight");
  const later = await open({
    environment: { themeKey: "daylight" },
    preferences: { seenWarnings: ["theme:1:contrast"] },
  });
  await expect.poll(() => theme(later)).toBe("contrast");
  const odd = await open({ environment: { themeKey: "no such theme" } });
  await expect.poll(() => theme(odd)).toBe("ravelin");
});

test("a file or link that is dropped on the page is not opened", async () => {
  const view = await open();
  const refused = await view.page.evaluate(() =>
    ["dragover", "drop"].map((name) => {
      const event = new DragEvent(name, { bubbles: true, cancelable: true, dataTransfer: new DataTransfer() });
      document.querySelector("#panel-spammer .title")!.dispatchEvent(event);
      return event.defaultPrevented;
    }),
  );
  expect(refused).toEqual([true, true]);
});

test("a panel whose window is too narrow for it at its scale asks for the width of 100 %", async () => {
  const view = await openPanel({ width: 300, pixelRatio: 1.5, environment: { scale: 1.5 } });
  await expect.poll(async () => (await view.calls("resizeWindow")).at(-1)?.[0]).toBe(448);
});
