import { defaultTheme, isThemeKey, type ThemeKey } from "../text/themes";
import type { Preferences } from "./preferences.svelte";
import { latestChoice, nextChoice } from "../text/theme_choice";

// The look of the page. A key that names no theme of the page gives the default one.
export class Theme {
  key = $state<ThemeKey>(defaultTheme);

  constructor(
    private readonly host: { currentThemeKey?: string },
    private readonly root: { dataset: DOMStringMap },
  ) {
    this.apply(defaultTheme);
  }

  apply(key: string): void {
    this.key = isThemeKey(key) ? key : defaultTheme;
    this.host.currentThemeKey = this.key;
    this.root.dataset["theme"] = this.key;
  }

  // The user's own choice, else the theme that the program was told to start with.
  adopt(preferences: Preferences, startKey: string): void {
    const chosen = latestChoice(preferences.seenWarnings) ?? startKey;
    if (chosen) this.apply(chosen);
  }

  choose(key: string, preferences: Preferences): void {
    this.apply(key);
    const note = nextChoice(preferences.seenWarnings, this.key);
    if (note) void preferences.markSeen(note);
  }
}
