import type { HotkeySlot } from "./methods";
import { asFields, flagOf, integer, text, texts } from "./read_value";

export type EngineState = "Idle" | "Recording" | "Playing";

// What the program reports several times a second.
export interface TrackerStatus {
  state: EngineState;
  count: number;
  restore: string[];
  hotkeys: Record<HotkeySlot, string>;
  lockOn: boolean;
  unlocked: boolean;
  keySpamTargets: string[];
  keySpamChord: boolean;
  ksCap: number;
  reassigning: string;
  panelHover: boolean;
  autoClicking: boolean;
  keySpamming: boolean;
}

export function readStatus(value: unknown): TrackerStatus | null {
  const fields = asFields(value);
  if (!fields) return null;
  const state = text(fields, "state");
  return {
    state: state === "Recording" || state === "Playing" ? state : "Idle",
    count: Math.max(0, integer(fields, "count", 0)),
    restore: texts(fields, "restore"),
    hotkeys: {
      rec: text(fields, "hkRec"),
      play: text(fields, "hkPlay"),
      auto: text(fields, "hkAuto"),
      keyspamhotkey: text(fields, "hkKeySpam"),
      unlock: text(fields, "hkUnlock"),
    },
    lockOn: flagOf(fields, "lockOn", false),
    unlocked: flagOf(fields, "unlocked", true),
    keySpamTargets: texts(fields, "keySpamTargets"),
    keySpamChord: flagOf(fields, "keySpamChord", false),
    ksCap: integer(fields, "ksCap", 3),
    reassigning: text(fields, "reassigning"),
    panelHover: flagOf(fields, "panelHover", false),
    autoClicking: flagOf(fields, "autoClicking", false),
    keySpamming: flagOf(fields, "keySpamming", false),
  };
}
