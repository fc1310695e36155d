import type { TrackerStatus } from "../bridge/status";
import { formatCount } from "./summaries";

// What a screen reader is told when the state changes; nothing at the first status.
export function announce(before: TrackerStatus | null, now: TrackerStatus | null): string {
  if (!before || !now) return "";
  const said: string[] = [];
  if (before.autoClicking !== now.autoClicking) {
    said.push(now.autoClicking ? "Auto clicker started" : "Auto clicker stopped");
  }
  if (before.keySpamming !== now.keySpamming) {
    said.push(now.keySpamming ? "Key spammer started" : "Key spammer stopped");
  }
  if (before.state !== now.state) said.push(macroChange(before, now));
  const locked = isLocked(now);
  if (isLocked(before) !== locked) {
    said.push(locked ? `Hotkeys locked, ${now.hotkeys.unlock} unlocks` : "Hotkeys unlocked");
  }
  if (before.reassigning !== "" && now.reassigning === "") said.push("Key capture ended");
  return said.join(". ");
}

export function isLocked(status: TrackerStatus): boolean {
  return status.lockOn && !status.unlocked;
}

function macroChange(before: TrackerStatus, now: TrackerStatus): string {
  if (now.state === "Recording") return "Recording started";
  if (now.state === "Playing") return "Playback started";
  if (before.state === "Playing") return "Playback ended";
  return `Recording ended, ${formatCount(now.count)} events`;
}
