import { asFields, flagOf, integer } from "./read_value";

// What went wrong in the program without ending anything, counted from its start.
export interface Environment {
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
    hooksMissing: flagOf(fields, "hooksMissing", false),
    hooksPutBack: integer(fields, "hooksPutBack", 0),
    refusedSends: integer(fields, "refusedSends", 0),
    failures: integer(fields, "failures", 0),
  };
}
