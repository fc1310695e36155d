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

const only = [
  "updateSpammer", "updateKeySpam", "removeKeySpamTarget", "setKeySpamChordMode", "reassignKey",
  "startSpammer", "stopSpammer", "startKeySpam", "stopKeySpam",
  "resizeWindow", "beginWindowDrag", "closeThisWindow",
];

// What the program appends to the page of a window that shows one panel.
const appended = (id: string, theme: string) => `<script>
  if (typeof applyTheme === "function") applyTheme(${JSON.stringify(theme)});
  document.getElementById("theme-select").value =
    typeof currentThemeKey !== "undefined" ? currentThemeKey : "ravelin";
  document.querySelectorAll(".panel").forEach((panel) => (panel.style.display = "none"));
  const panel = document.getElementById(${JSON.stringify(id)});
  panel.style.display = "block";
  panel.style.borderRadius = "0";
  panel.style.boxShadow = "none";
  panel.style.border = "none";
  const header = panel.querySelector(".panel-header");
  header.style.cursor = "move";
  header.addEventListener("mousedown", (event) => {
    if (event.button === 0 && !event.target.closest(".panel-btn")) beginWindowDrag("");
  });
  document.body.style.padding = "0";
  document.getElementById("dashboard").style.gap = "0";
  document.body.style.visibility = "visible";
  if (typeof resizeHostWindow === "function") resizeHostWindow();
</script>`;

async function open(id: string, theme = "ravelin", options: ViewOptions = {}): Promise<void> {
  view = await View.open(browser, {
    width: 450, height: 400, only, appended: appended(id, theme), ...options,
  });
  await view.page.locator(`#${id}`).waitFor();
}

test("shows its panel alone, in the given theme, and fits the window to it", async () => {
  await open("panel-spammer", "daylight");
  expect(await view.page.locator(".panel:visible").count()).toBe(1);
  expect(await view.page.locator(".bar").count()).toBe(0);
  expect(await view.page.locator("#theme-select").inputValue()).toBe("daylight");
  const box = (await view.page.locator("#panel-spammer").boundingBox())!;
  expect(box).toMatchObject({ x: 0, y: 0, width: 450 });
  expect((await view.calls("resizeWindow"))[0]).toEqual([450, Math.ceil(box.height)]);
  await view.page.setViewportSize({ width: 450, height: Math.ceil(box.height) });
  await view.shot("child_clicker");
});

test("grows and shrinks with its content", async () => {
  await open("panel-spammer");
  await view.page.getByText("Fixed point").click();
  await expect.poll(async () => (await view.calls("resizeWindow")).length).toBeGreaterThan(1);
  const [first, last] = [await view.calls("resizeWindow")].flatMap((c) => [c[0], c.at(-1)]);
  expect(Number(last?.[1])).toBeGreaterThanOrEqual(Number(first?.[1]));
});

test("sends nothing before the user changes something", async () => {
  await open("panel-spammer");
  await view.page.waitForTimeout(500);
  const names = (await view.program()).calls.map((call) => call.name);
  expect(new Set(names)).toEqual(new Set(["resizeWindow"]));
});

test("offers start and stop, as it does not know what runs", async () => {
  await open("panel-keyspam");
  await view.page.getByRole("button", { name: "Start pressing" }).click();
  await view.page.getByRole("button", { name: "Stop pressing" }).click();
  expect(await view.calls("startKeySpam")).toHaveLength(1);
  expect(await view.calls("stopKeySpam")).toHaveLength(1);
  await view.page.getByText("The keys in use are listed in the main window.").waitFor();
  await view.shot("child_keys");
});

test("is dragged by its header and closed by its button", async () => {
  await open("panel-spammer");
  await view.page.getByRole("heading", { name: "Auto clicker" }).click();
  expect(await view.calls("beginWindowDrag")).toEqual([[""]]);
  await view.page.locator("#panel-spammer .panel-btn").click();
  expect(await view.calls("beginWindowDrag")).toHaveLength(1);
  expect(await view.calls("closeThisWindow")).toHaveLength(1);
});

test("a capture is shown for a while", async () => {
  await open("panel-keyspam");
  await view.page.getByRole("button", { name: "Add key" }).click();
  await view.page.getByText("Press a key… Esc cancels").waitFor();
  expect(await view.calls("reassignKey")).toEqual([["keyspamtarget"]]);
});

test("settings and profiles point to the main window", async () => {
  await open("panel-ui");
  await view.page.getByText("Settings are changed in the main window.").waitFor();
  await view.close();
  await open("panel-profile");
  await view.page.getByText("Profiles are kept in the main window.").waitFor();
});
