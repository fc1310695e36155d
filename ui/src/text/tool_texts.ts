import type { ClickerSettings, KeySpamSettings } from "../bridge/tool_settings";
import { carryOver, type Interval } from "./interval";

export const mostTimes = 1_000_000;

// The settings as the program takes them: whole numbers within their ranges, whatever the form holds.
export function clickerText(settings: ClickerSettings): string {
  return [
    ...intervalParts(settings.interval),
    clamp(settings.button, 0, 2),
    settings.double ? 1 : 0,
    settings.counted ? 0 : 1,
    clamp(settings.times, 1, mostTimes),
    settings.fixed ? 1 : 0,
  ].join(",");
}

export function keySpamText(settings: KeySpamSettings): string {
  return [
    ...intervalParts(settings.interval),
    settings.counted ? 0 : 1,
    clamp(settings.times, 1, mostTimes),
  ].join(",");
}

export function clamp(value: number, least: number, most: number): number {
  if (Number.isNaN(value)) return least;
  return Math.min(most, Math.max(least, Math.trunc(value)));
}

function intervalParts(interval: Interval): number[] {
  const { h, m, s, ms } = carryOver(interval);
  return [h, m, s, ms];
}
