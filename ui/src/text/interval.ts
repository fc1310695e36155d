// The time between two rounds of a tool, in the four parts in which it is entered.
export interface Interval {
  h: number;
  m: number;
  s: number;
  ms: number;
}

export const longestInterval = 99 * 3_600_000 + 59 * 60_000 + 59 * 1000 + 999;

// In milliseconds, between the shortest wait of the engine (1 ms) and 99:59:59.999.
export function totalMs(interval: Interval): number {
  const sum = interval.h * 3_600_000 + interval.m * 60_000 + interval.s * 1000 + interval.ms;
  return Math.min(longestInterval, Math.max(1, Math.trunc(Number.isFinite(sum) ? sum : 1)));
}

// The same time with every part in its natural range: 1500 ms become 1 s 500 ms.
export function carryOver(interval: Interval): Interval {
  const total = totalMs(interval);
  return {
    h: Math.floor(total / 3_600_000),
    m: Math.floor(total / 60_000) % 60,
    s: Math.floor(total / 1000) % 60,
    ms: total % 1000,
  };
}

export function sameInterval(a: Interval, b: Interval): boolean {
  return a.h === b.h && a.m === b.m && a.s === b.s && a.ms === b.ms;
}

// "50 ms", "1.5 s", "2 min 30 s", "1 h 5 min".
export function describeDuration(total: number): string {
  if (total < 1000) return `${Math.max(1, Math.round(total))} ms`;
  const hours = Math.floor(total / 3_600_000);
  const minutes = Math.floor(total / 60_000) % 60;
  const seconds = (total % 60_000) / 1000;
  const parts: string[] = [];
  if (hours > 0) parts.push(`${hours} h`);
  if (minutes > 0) parts.push(`${minutes} min`);
  if (seconds > 0) parts.push(`${trimmed(seconds, 3)} s`);
  return parts.join(" ");
}

const spans: [name: string, milliseconds: number][] = [
  ["second", 1000],
  ["minute", 60_000],
  ["hour", 3_600_000],
];

// "about 20 clicks a second"; the span is the shortest one in which something happens.
export function describeRate(period: number, one: string, many: string): string {
  const [name, length] = spans.find(([, span]) => span >= period) ?? ["day", 86_400_000];
  const rate = length / period;
  const shown = trimmed(rate, rate < 10 ? 1 : 0);
  return `about ${shown} ${shown === "1" ? one : many} ${name === "hour" ? "an" : "a"} ${name}`;
}

function trimmed(value: number, digits: number): string {
  return String(Number(value.toFixed(digits)));
}
