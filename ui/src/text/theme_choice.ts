import { isThemeKey, type ThemeKey } from "./themes";

// The view refuses every storage of its own, and the one list that the program keeps for the page
// is that of the notices already seen: it only grows and comes back sorted. A chosen theme is
// therefore kept there as a numbered note, "theme:4:daylight", and the highest number holds.
const form = /^theme:(\d{1,9}):([a-z]+)$/;

export function latestChoice(seen: readonly string[]): ThemeKey | null {
  return latest(seen)?.key ?? null;
}

// The note to keep for this choice; null when it is the one that holds already.
export function nextChoice(seen: readonly string[], key: ThemeKey): string | null {
  const last = latest(seen);
  if (last?.key === key) return null;
  return `theme:${(last?.number ?? 0) + 1}:${key}`;
}

function latest(seen: readonly string[]): { number: number; key: ThemeKey } | null {
  let found: { number: number; key: ThemeKey } | null = null;
  for (const note of seen) {
    const match = form.exec(note);
    const key = match?.[2] ?? "";
    const number = Number(match?.[1] ?? -1);
    if (isThemeKey(key) && number > (found?.number ?? -1)) found = { number, key };
  }
  return found;
}
