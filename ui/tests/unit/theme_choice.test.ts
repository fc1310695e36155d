import { expect, test } from "vitest";
import { latestChoice, nextChoice } from "../../src/text/theme_choice";

test("without a note there is no choice", () => {
  expect(latestChoice([])).toBeNull();
  expect(latestChoice(["no-stop-key", "theme:x:daylight", "theme:1:unknown"])).toBeNull();
});

test("the note with the highest number holds, in whatever order the notes come", () => {
  const notes = ["theme:10:contrast", "theme:2:daylight", "theme:9:ravelin"];
  expect(latestChoice(notes)).toBe("contrast");
});

test("a new choice gets the next number, the same choice none", () => {
  expect(nextChoice([], "daylight")).toBe("theme:1:daylight");
  expect(nextChoice(["theme:10:contrast"], "ravelin")).toBe("theme:11:ravelin");
  expect(nextChoice(["theme:10:contrast"], "contrast")).toBeNull();
});

test("a note holds nothing that a value cannot carry", () => {
  expect(nextChoice([], "ravelin")).not.toMatch(/["[\],]/);
});
