import { expect, test } from "vitest";
import { panelScript, panelWindowMethods } from "./panel_window";
import { useViews } from "./views";
import type { View, ViewOptions } from "./harness";

const open = useViews({ width: 450, height: 400, only: panelWindowMethods });
let view: View;

async function show(id: string, theme = "ravelin", options: ViewOptions = {}): Promise<void> {
  view = await open({ appended: panelScript(id, theme), ...options });
  await view.page.locator(`#${id}`).waitFor();
}

test("shows its panel alone, in the given theme, and fits the window to it", async () => {
  await show("panel-spammer", "daylight");
  expect(await view.page.locator(".panel:visible").count()).toBe(1);
  expect(await view.page.locator(".bar").count()).toBe(0);
  expect(await view.page.locator("#theme-select").inputValue()).toBe("daylight");
  await fit();
  const box = (await view.page.locator("#panel-spammer").boundingBox())!;
  expect(box).toMatchObject({ x: 0, y: 0, width: 450 });
  expect((await view.calls("resizeWindow")).at(-1)).toEqual([450, Math.ceil(box.height)]);
  await view.shot("child_clicker");
});

// Does as the program does with every size that the page asks for, until it asks for no other.
async function fit(): Promise<void> {
  const ratio = await view.page.evaluate(() => devicePixelRatio);
  let done = 0;
  for (;;) {
    await expect.poll(async () => (await view.calls("resizeWindow")).length).toBeGreaterThan(0);
    const asked = await view.calls("resizeWindow");
    if (asked.length === done) return;
    done = asked.length;
    expect(done).toBeLessThan(6);
    const [width, height] = asked.at(-1) as [number, number];
    const size = (pixels: number) => Math.floor(pixels / ratio + 1e-6);
    await view.page.setViewportSize({ width: size(width), height: size(height) });
    await twoFrames();
  }
}

// What the new size brings about is asked for before the second frame.
async function twoFrames(): Promise<void> {
  await view.page.evaluate(
    () => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))),
  );
}

test.each([1, 1.25, 1.3, 1.5, 2])(
  "keeps its width and fits its height without a scroll bar, however often it grows, at %f",
  async (pixelRatio) => {
    await show("panel-spammer", "ravelin", { pixelRatio });
    await fit();
    for (const choice of ["Fixed point", "At the cursor", "Fixed point", "At the cursor"]) {
      await view.page.getByText(choice, { exact: true }).click();
      await twoFrames();
      await fit();
      const [width, bar, over] = await view.page.evaluate(() => {
        const root = document.documentElement;
        return [innerWidth, innerWidth - root.clientWidth, root.scrollHeight - innerHeight];
      });
      expect([width, bar, over]).toEqual([450, 0, 0]);
    }
  },
);

test("grows and shrinks with its content", async () => {
  await show("panel-spammer");
  const sizes = async () => (await view.calls("resizeWindow")).map(([, height]) => height);
  const fits = async () => {
    const box = await view.page.locator("#panel-spammer").boundingBox();
    return (await sizes()).at(-1) === Math.ceil(box!.height);
  };
  await view.page.getByText("Right", { exact: true }).click();
  await expect.poll(async () => (await sizes()).length).toBe(2);
  await expect.poll(fits).toBe(true);
  await view.page.getByText("Fixed point").click();
  await expect.poll(async () => (await sizes()).length).toBe(3);
  await expect.poll(fits).toBe(true);
});

test("tells that it shows defaults, until something is changed", async () => {
  await show("panel-spammer");
  const note = view.page.locator("#panel-spammer").getByText("These are the defaults");
  await note.waitFor();
  await view.page.getByText("Middle", { exact: true }).click();
  await note.waitFor({ state: "detached" });
  await expect.poll(() => view.calls("updateSpammer")).toEqual([["0,0,0,5,2,0,1,10,0"]]);
});

test("sends nothing before the user changes something", async () => {
  await show("panel-spammer");
  await view.page.waitForTimeout(500);
  const names = (await view.program()).calls.map((call) => call.name);
  expect(new Set(names)).toEqual(new Set(["resizeWindow"]));
});

test("offers start and stop, as it does not know what runs", async () => {
  await show("panel-keyspam");
  await view.page.getByRole("button", { name: "Start pressing" }).click();
  await view.page.getByRole("button", { name: "Stop pressing" }).click();
  expect(await view.calls("startKeySpam")).toHaveLength(1);
  expect(await view.calls("stopKeySpam")).toHaveLength(1);
  await view.page.getByText("The keys in use are listed in the main window.").waitFor();
  await view.shot("child_keys");
});

test("is dragged by its header and closed by its button", async () => {
  await show("panel-spammer");
  await view.page.getByRole("heading", { name: "Auto clicker" }).click();
  expect(await view.calls("beginWindowDrag")).toEqual([[""]]);
  await view.page.locator("#panel-spammer .panel-btn").click();
  expect(await view.calls("beginWindowDrag")).toHaveLength(1);
  expect(await view.calls("closeThisWindow")).toHaveLength(1);
});

test("a capture is shown for a while", async () => {
  await show("panel-keyspam");
  await view.page.getByRole("button", { name: "Add key" }).click();
  await view.page.getByText("Press a key… Esc cancels").waitFor();
  expect(await view.calls("reassignKey")).toEqual([["keyspamtarget"]]);
});

test("settings and profiles point to the main window", async () => {
  await show("panel-ui");
  await view.page.getByText("Settings are changed in the main window.").waitFor();
  await show("panel-profile");
  await view.page.getByText("Profiles are kept in the main window.").waitFor();
});

test("shows what the program has written down, when it can read it", async () => {
  await show("panel-spammer", "ravelin", {
    only: [...panelWindowMethods, "getTrackerStatus", "getSettings"],
    settings: { sms: 40 },
    status: { autoClicking: true, panelHover: true },
  });
  const panel = view.page.locator("#panel-spammer");
  await panel.getByRole("button", { name: "Stop clicking" }).waitFor();
  await panel.getByText("Every 40 ms").waitFor();
  expect(await view.page.getByText("Drop the panel here").count()).toBe(0);
  expect(await panel.getByText("These are the defaults").count()).toBe(0);
  await view.shot("child_reading");
});

test("keeps an edit while the program has not written it down yet", async () => {
  await show("panel-spammer", "ravelin", {
    only: ["getSettings", ...panelWindowMethods.filter((name) => name !== "updateSpammer")],
    settings: { sms: 40 },
  });
  const panel = view.page.locator("#panel-spammer");
  await panel.getByText("Every 40 ms").waitFor();
  await panel.getByText("Double", { exact: true }).click();
  await view.page.waitForTimeout(3000);
  expect(await panel.getByRole("radio", { name: "Double" }).isChecked()).toBe(true);
});
