import { afterEach, beforeEach, expect, test, vi } from "vitest";
import { ToolForm } from "../../src/state/tool_form.svelte";

interface Values {
  size: number;
  name: string;
}

let sent: Values[];
let form: ToolForm<Values>;

beforeEach(() => {
  vi.useFakeTimers();
  sent = [];
  form = new ToolForm<Values>({ size: 1, name: "a" }, (values) => sent.push(values));
});
afterEach(() => vi.useRealTimers());

test("edits in quick succession are sent once, with the last values", () => {
  form.edit({ size: 2 });
  form.edit({ size: 3 });
  expect(sent).toEqual([]);
  vi.runAllTimers();
  expect(sent).toEqual([{ size: 3, name: "a" }]);
});

test("an edit that changes nothing sends nothing", () => {
  form.edit({ size: 1 });
  vi.runAllTimers();
  expect(sent).toEqual([]);
});

test("a waiting edit is sent at once on request, and only once", () => {
  form.edit({ size: 2 });
  form.flush();
  form.flush();
  vi.runAllTimers();
  expect(sent).toEqual([{ size: 2, name: "a" }]);
});

test("a report is taken over when nobody edits", () => {
  form.receive({ size: 9, name: "z" }, form.version);
  expect(form.values).toEqual({ size: 9, name: "z" });
  vi.runAllTimers();
  expect(sent).toEqual([]);
});

test("a report asked for before an edit is out of date", () => {
  const askedAt = form.version;
  form.edit({ size: 2 });
  form.flush();
  form.receive({ size: 1, name: "a" }, askedAt);
  expect(form.values.size).toBe(2);
});

test("a report does not disturb an edit that still waits", () => {
  form.edit({ size: 2 });
  form.receive({ size: 1, name: "a" }, form.version);
  expect(form.values.size).toBe(2);
});

test("a report waits until the field is left, which also sends the edit", () => {
  form.hold();
  form.receive({ size: 5, name: "a" }, form.version);
  expect(form.values.size).toBe(1);
  form.edit({ size: 2 });
  form.release();
  expect(sent).toEqual([{ size: 2, name: "a" }]);
  form.receive({ size: 5, name: "a" }, form.version);
  expect(form.values.size).toBe(5);
});

test("where reports lag behind, one soon after an edit is out of date", () => {
  const slow = new ToolForm<Values>({ size: 1, name: "a" }, () => undefined, 8000);
  slow.edit({ size: 2 });
  slow.flush();
  vi.advanceTimersByTime(7000);
  slow.receive({ size: 1, name: "a" }, slow.version);
  expect(slow.values.size).toBe(2);
  vi.advanceTimersByTime(2000);
  slow.receive({ size: 5, name: "a" }, slow.version);
  expect(slow.values.size).toBe(5);
});
