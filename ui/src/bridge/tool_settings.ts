import { asFields, decimal, flagOf, integer, type Fields } from "./read_value";
import type { Interval } from "../text/interval";

export interface ClickerSettings {
  interval: Interval;
  button: number;
  double: boolean;
  counted: boolean;
  times: number;
  fixed: boolean;
}

export interface KeySpamSettings {
  interval: Interval;
  counted: boolean;
  times: number;
}

// What the recorder and the player do; the page shows it and cannot change it.
export interface MacroOptions {
  moves: boolean;
  clicks: boolean;
  wheel: boolean;
  keys: boolean;
  relative: boolean;
  speed: number;
  loop: boolean;
  loopPause: number;
}

export interface ToolSettings {
  clicker: ClickerSettings;
  point: { x: number; y: number };
  keySpam: KeySpamSettings;
  macro: MacroOptions;
}

export function readToolSettings(value: unknown): ToolSettings | null {
  const fields = asFields(value);
  if (!fields) return null;
  return {
    clicker: {
      interval: readInterval(fields, ["sh", "sm", "ss", "sms"]),
      button: integer(fields, "sbtn", 0),
      double: integer(fields, "stype", 0) === 1,
      counted: integer(fields, "rptMode", 1) === 0,
      times: integer(fields, "rptTimes", 10),
      fixed: integer(fields, "locMode", 0) === 1,
    },
    point: { x: integer(fields, "fixedX", 0), y: integer(fields, "fixedY", 0) },
    keySpam: {
      interval: readInterval(fields, ["ksh", "ksm", "kss", "ksms"]),
      counted: integer(fields, "ksRptMode", 1) === 0,
      times: integer(fields, "ksRptTimes", 10),
    },
    macro: {
      moves: flagOf(fields, "tmv", true),
      clicks: flagOf(fields, "tclk", true),
      wheel: flagOf(fields, "tscr", true),
      keys: flagOf(fields, "tkey", true),
      relative: flagOf(fields, "trel", false),
      speed: decimal(fields, "tspd", 1),
      loop: flagOf(fields, "tloop", false),
      loopPause: integer(fields, "tloopMs", 500),
    },
  };
}

function readInterval(fields: Fields, keys: [string, string, string, string]): Interval {
  const [h, m, s, ms] = keys;
  return {
    h: integer(fields, h, 0),
    m: integer(fields, m, 0),
    s: integer(fields, s, 0),
    ms: integer(fields, ms, 5),
  };
}

export const defaultToolSettings: ToolSettings = readToolSettings({})!;
