import { expect, test } from "vitest";
import { useViews } from "./views";

const open = useViews();

test("input that Windows refuses is told once it is refused, and no longer when it is over", async () => {
  const view = await open({ environment: { refusedSends: 0 } });
  const alert = view.page.getByRole("alert");
  await view.page.locator(".bar ul").waitFor();
  expect(await alert.count()).toBe(0);
  await view.report({ environment: { refusedSends: 3 } });
  await alert.getByText("Windows blocks input to this program.").waitFor();
  await view.shot("trouble-refused");
  await alert.waitFor({ state: "detached" });
});

test("a hook that was put back is told until it was read", async () => {
  const view = await open({ environment: { hooksPutBack: 1 } });
  const alert = view.page.getByRole("alert");
  await alert.getByText("Hotkeys work again.").waitFor();
  await view.page.getByRole("button", { name: "Close" }).click();
  await alert.waitFor({ state: "detached" });
  await view.report({ environment: { hooksPutBack: 2 } });
  await alert.waitFor();
});

test("a hook that is refused is told as long as it is missing, before everything else", async () => {
  const view = await open({ environment: { hooksMissing: true, failures: 1, hooksPutBack: 1 } });
  const alert = view.page.getByRole("alert");
  await alert.getByText("Hotkeys do nothing.").waitFor();
  expect(await alert.count()).toBe(1);
  await view.report({ environment: { hooksMissing: false } });
  await alert.getByText("Something went wrong in Ravelin.").waitFor();
});
