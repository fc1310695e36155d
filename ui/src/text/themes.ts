export const themes = [
  { key: "ravelin", name: "Ravelin (dark)" },
  { key: "daylight", name: "Daylight" },
  { key: "contrast", name: "High contrast" },
] as const;

export type ThemeKey = (typeof themes)[number]["key"];

export const defaultTheme: ThemeKey = "ravelin";

export function isThemeKey(text: string): text is ThemeKey {
  return themes.some((theme) => theme.key === text);
}
