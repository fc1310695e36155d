import { beforeEach, expect, test } from "vitest";
import { useLiveViews } from "./views";
import type { View } from "./harness";

const open = useLiveViews();
let view: View;
beforeEach(async () => {
  view = await open();
  await view.page.evaluate(() => window.onUpdateAvailable?.("1.2.0", "1.0.1"));
});

const answer = (message: string) =>
  view.page.evaluate((text) => {
    const { program } = window as unknown as { program: { answerUpdate(m: string): void } };
    program.answerUpdate(text);
  }, message);

test("an update goes from the offer to the installer", async () => {
  const { page } = view;
  await page.getByText("Ravelin 1.2.0 is available.").waitFor();
  await view.shot("update_offered");
  await page.getByRole("button", { name: "Update", exact: true }).click();
  await page.getByText("Starting the download…").waitFor();
  await page.evaluate(() => window.onUpdateProgress?.(4_200_000, 18_600_000));
  await page.getByText("4.2 of 18.6 MB · 22 %").waitFor();
  await view.shot("update_downloading");
  expect(await page.getByRole("progressbar").getAttribute("value")).toBe("22");
  await page.evaluate(() => window.onUpdateInstalling?.());
  await page.getByText("Installing the update.").waitFor();
  expect(await view.calls("startUpdate")).toHaveLength(1);
});

test("a failure is shown as the program words it and can be tried again", async () => {
  const { page } = view;
  await page.getByRole("button", { name: "Update", exact: true }).click();
  await expect.poll(() => view.calls("startUpdate")).toHaveLength(1);
  const message = "Update failed: the update is no longer available. Try again later.";
  await answer(message);
  await page.getByText(message, { exact: true }).waitFor();
  await view.shot("update_failed");
  await page.getByRole("button", { name: "Try again" }).click();
  await expect.poll(() => view.calls("startUpdate")).toHaveLength(2);
  await page.getByText("Starting the download…").waitFor();
});

test("the answer to a second request does not end the first one", async () => {
  const { page } = view;
  await page.getByRole("button", { name: "Update", exact: true }).click();
  await expect.poll(() => view.calls("startUpdate")).toHaveLength(1);
  await answer("An update is already in progress.");
  await page.getByText("An update is already in progress.").waitFor();
  await page.evaluate(() => window.onUpdateProgress?.(1_000_000, 0));
  await page.getByText("1.0 MB").waitFor();
});

test("an offer can wait", async () => {
  await view.page.getByRole("button", { name: "Later" }).click();
  await view.page.getByText("Ravelin 1.2.0 is available").waitFor({ state: "detached" });
  expect(await view.calls("startUpdate")).toHaveLength(0);
});
