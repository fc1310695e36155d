import { asFields, decimal, flagOf, integer, text } from "./read_value";

// The surroundings of the program and of the page's window, and what went wrong without ending
// anything, counted from the program's start.
export interface Environment {
  // Of the window: 1 where Windows shows everything at 100 %.
  scale: number;
  // The user has exchanged the left and the right mouse button.
  buttonsSwapped: boolean;
  // The theme that the program was told to start with.
  themeKey: string;
  // Windows refuses to let the program watch keys and clicks.
  hooksMissing: boolean;
  // How often watching them was taken up again after Windows had ended it.
  hooksPutBack: number;
  // Keys and clicks that Windows did not take.
  refusedSends: number;
  failures: number;
}

export function readEnvironment(value: unknown): Environment | null {
  const fields = asFields(value);
  if (!fields) return null;
  return {
    scale: Math.max(0.25, decimal(fields, "scale", 1)),
    buttonsSwapped: flagOf(fields, "buttonsSwapped", false),
    themeKey: text(fields, "themeKey"),
    hooksMissing: flagOf(fields, "hooksMissing", false),
    hooksPutBack: integer(fields, "hooksPutBack", 0),
    refusedSends: integer(fields, "refusedSends", 0),
    failures: integer(fields, "failures", 0),
  };
}
