import type { ClickerSettings, KeySpamSettings } from "../bridge/tool_settings";
import { describeDuration, describeRate, totalMs } from "./interval";

const buttonNames = ["Left", "Right", "Middle"];

// The second click of a double click comes this long after the first.
const doubleClickGap = 15;

export function clickerPace(settings: ClickerSettings): string {
  const wait = totalMs(settings.interval);
  const rate = settings.double
    ? describeRate(wait + doubleClickGap, "double click", "double clicks")
    : describeRate(wait, "click", "clicks");
  return `Every ${describeDuration(wait)} · ${rate}`;
}

export function clickerPlan(settings: ClickerSettings, point: { x: number; y: number }): string {
  const button = buttonNames[settings.button];
  if (!button) return "No mouse button is chosen, so nothing is clicked";
  const kind = `${button} ${settings.double ? "double click" : "click"}`;
  const where = settings.fixed ? `at ${point.x}, ${point.y}` : "at the cursor";
  if (!settings.counted) return `${kind}s ${where} until stopped`;
  return `${counted(settings.times, kind.toLowerCase())} ${where}, then stops`;
}

export function keySpamPace(settings: KeySpamSettings, keys: number, chord: boolean): string {
  const wait = totalMs(settings.interval);
  const together = chord && keys > 1;
  const rate = together
    ? describeRate(wait, "chord", "chords")
    : describeRate(wait, "key press", "key presses");
  return `Every ${describeDuration(wait)} · ${rate}`;
}

export function keySpamPlan(settings: KeySpamSettings, keys: string[], chord: boolean): string {
  if (keys.length === 0) return "No key yet: add one to start";
  const together = chord && keys.length > 1;
  const what = together ? `${keys.join(" + ")} together` : keys.join(", then ");
  if (!settings.counted) return `${what}, until stopped`;
  return `${what}: ${counted(settings.times, together ? "chord" : "key press")}, then stops`;
}

function counted(times: number, what: string): string {
  const ending = times === 1 ? "" : what.endsWith("s") ? "es" : "s";
  return `${formatCount(times)} ${what}${ending}`;
}

// With a narrow gap between thousands, whatever the system's language.
export function formatCount(count: number): string {
  return String(count).replace(/\B(?=(\d{3})+$)/g, "\u202f");
}
