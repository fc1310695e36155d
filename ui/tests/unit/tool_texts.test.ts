import { expect, test } from "vitest";
import { readToolSettings } from "../../src/bridge/tool_settings";
import { clickerText, keySpamText } from "../../src/text/tool_texts";

const settings = readToolSettings({
  sh: 0, sm: 0, ss: 1, sms: 500, sbtn: 1, stype: 1, rptMode: 0, rptTimes: 3, locMode: 1,
  ksh: 0, ksm: 1, kss: 0, ksms: 20, ksRptMode: 0, ksRptTimes: 7,
})!;

test("the clicker's settings go out in the order in which the program reads them", () => {
  expect(clickerText(settings.clicker)).toBe("0,0,1,500,1,1,0,3,1");
});

test("the key spammer's settings go out in the order in which the program reads them", () => {
  expect(keySpamText(settings.keySpam)).toBe("0,1,0,20,0,7");
});

test("what goes out is whole and in range, whatever the form holds", () => {
  const odd = {
    interval: { h: 0, m: 0, s: 0, ms: Number.NaN },
    button: 7,
    double: false,
    counted: true,
    times: -4,
    fixed: false,
  };
  expect(clickerText(odd)).toBe("0,0,0,1,2,0,0,1,0");
  expect(clickerText({ ...odd, button: Number.NaN, times: 2.9 })).toBe("0,0,0,1,0,0,0,2,0");
  expect(clickerText({ ...odd, times: 1e12 })).toBe("0,0,0,1,2,0,0,1000000,0");
});

test("a part that holds too much is carried over before it goes out", () => {
  const interval = { h: 0, m: 0, s: 90, ms: 1500 };
  expect(keySpamText({ interval, counted: false, times: 10 })).toBe("0,1,31,500,1,10");
});
