import { expect, test } from "vitest";
import { Bridge } from "../../src/bridge/bridge";
import { Update } from "../../src/state/update.svelte";

const answering = (startUpdate: () => Promise<unknown>) => new Update(new Bridge({ startUpdate }));

test("an offer waits for the user, and does not disturb a download", () => {
  const update = answering(async () => "");
  update.offer("1.2.0", "1.0.1");
  expect(update.phase).toBe("offered");
  update.progress(1, 10);
  update.offer("1.2.0", "1.0.1");
  expect(update.phase).toBe("downloading");
});

test("a failure keeps the program's words", async () => {
  const update = answering(async () => "Update failed: no connection.");
  await update.start();
  expect([update.phase, update.message]).toEqual(["failed", "Update failed: no connection."]);
});

test("a rejected request is a failure too", async () => {
  const update = answering(() => Promise.reject(new Error("The view is gone")));
  await update.start();
  expect([update.phase, update.message]).toEqual(["failed", "The view is gone"]);
});

test("being under way already is no failure", async () => {
  const update = answering(async () => "An update is already in progress.");
  await update.start();
  expect(update.phase).toBe("downloading");
});

test("installing follows, whatever was shown before", () => {
  const update = answering(async () => "");
  update.installing();
  expect(update.phase).toBe("installing");
});
