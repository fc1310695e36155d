import { describe, expect, test } from "vitest";
import { readProfiles } from "../../src/bridge/profiles";
import { readToolSettings } from "../../src/bridge/tool_settings";
import { describeDownload, percent } from "../../src/text/download_text";
import { eventCount, playback, recordedKinds } from "../../src/text/macro_texts";
import { askClear, askDelete, canDelete, cleanName } from "../../src/text/profile_texts";
import {
  clickerPace,
  clickerPlan,
  formatCount,
  keySpamPace,
  keySpamPlan,
} from "../../src/text/summaries";

const settings = (change = {}) => readToolSettings(change)!;
const here = { x: 0, y: 0 };

describe("the clicker's summary", () => {
  test("tells the pace, a double click being longer than a click", () => {
    expect(clickerPace(settings({ sms: 50 }).clicker)).toBe(
      "Every 50 ms · about 20 clicks a second",
    );
    expect(clickerPace(settings({ sms: 5, stype: 1 }).clicker)).toBe(
      "Every 5 ms · about 50 double clicks a second",
    );
  });

  test("tells what is done, where and for how long", () => {
    expect(clickerPlan(settings().clicker, here)).toBe("Left clicks at the cursor until stopped");
    const counted = { rptMode: 0, rptTimes: 1, sbtn: 1, locMode: 1 };
    expect(clickerPlan(settings(counted).clicker, { x: -5, y: 8 })).toBe(
      "1 right click at -5, 8, then stops",
    );
  });

  test("tells that nothing is clicked without a button", () => {
    expect(clickerPlan(settings({ sbtn: 7 }).clicker, here)).toContain("nothing is clicked");
  });
});

describe("the key spammer's summary", () => {
  const plain = settings({ ksms: 100 }).keySpam;

  test("speaks of chords only with several keys", () => {
    expect(keySpamPace(plain, 1, true)).toBe("Every 100 ms · about 10 key presses a second");
    expect(keySpamPace(plain, 2, true)).toBe("Every 100 ms · about 10 chords a second");
    expect(keySpamPlan(plain, ["A"], true)).toBe("A, until stopped");
    expect(keySpamPlan(plain, ["Ctrl", "C"], true)).toBe("Ctrl + C together, until stopped");
  });

  test("counts presses", () => {
    const counted = settings({ ksRptMode: 0, ksRptTimes: 4 }).keySpam;
    expect(keySpamPlan(counted, ["A", "B"], false)).toBe("A, then B: 4 key presses, then stops");
    expect(keySpamPlan({ ...counted, times: 1 }, ["A", "B"], true)).toContain("1 chord,");
  });
});

test("large counts are set in groups of three", () => {
  expect(formatCount(999)).toBe("999");
  expect(formatCount(1_234_567)).toBe("1\u202f234\u202f567");
  expect(eventCount(1)).toBe("1 event");
});

test("the macro's options read as a sentence", () => {
  expect(recordedKinds(settings({ trel: true, tkey: false }).macro)).toBe(
    "relative mouse motion, clicks, wheel",
  );
  const none = { tmv: false, tclk: false, tscr: false, tkey: false };
  expect(recordedKinds(settings(none).macro)).toBe("nothing");
  expect(playback(settings().macro)).toBe("once, at the recorded speed");
  expect(playback(settings({ tloop: true, tloopMs: 0, tspd: 2 }).macro)).toBe(
    "again and again, at 2 × speed",
  );
});

describe("a profile's name", () => {
  test("loses what a value cannot carry and keeps everything else", () => {
    expect(cleanName('a"b[c]d\\e\tf\n, g|h ü')).toBe("abcdef, g|h ü");
  });

  test("has an end", () => {
    expect(cleanName("x".repeat(90))).toHaveLength(40);
  });
});

describe("removing a profile", () => {
  const list = (names: string[], current: number) => readProfiles({ names, current })!;

  test("deletes neither the default profile nor the last one", () => {
    expect(canDelete(list(["Default Tracking Profile", "A"], 0))).toBe(false);
    expect(canDelete(list(["Default Tracking Profile", "A"], 1))).toBe(true);
    expect(canDelete(list(["A"], 0))).toBe(false);
    expect(canDelete(list(["A", "B"], -1))).toBe(false);
  });

  test("says what is lost", () => {
    expect(askDelete("A", 1).detail).toContain("Its macro of 1 event is lost and the profile");
    expect(askClear("A", 0).detail).toContain("It holds no macro, and its clicker");
  });
});

describe("a download", () => {
  test.each([
    [0, 0, "Starting the download…"],
    [0, 5_000_000, "0.0 of 5.0 MB · 0 %"],
    [4_999_999, 5_000_000, "5.0 of 5.0 MB · 99 %"],
    [1_500_000, 0, "1.5 MB"],
  ])("of %d of %d bytes reads %s", (received, total, text) => {
    expect(describeDownload(received, total)).toBe(text);
  });

  test("is never further than its end", () => {
    expect(percent(7, 5)).toBe(100);
    expect(percent(7, 0)).toBe(0);
  });
});
