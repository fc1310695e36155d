import type { CaptureSlot } from "../bridge/methods";
import type { TrackerStatus } from "../bridge/status";
import { isLocked } from "./announcements";

export function captureHint(slot: CaptureSlot): string {
  if (slot === "keyspamtarget") return "Press a key… Esc cancels";
  if (slot === "unlock") return "Press a key or any but the left mouse button… Esc cancels";
  return "Press a key or mouse button… Esc cancels";
}

export type HotkeyMood = "ready" | "locked" | "off" | "unknown";

export function hotkeyMood(status: TrackerStatus | null, enabled: boolean): HotkeyMood {
  if (!status) return "unknown";
  if (!enabled) return "off";
  return isLocked(status) ? "locked" : "ready";
}

// The one line under a tool's name in the overview: what its hotkey does next.
export function keyDoes(mood: HotkeyMood, key: string, verb: string): string {
  if (mood === "locked") return "key locked";
  if (mood === "off") return "keys off";
  return key === "" ? "" : `${key} ${verb}`;
}
