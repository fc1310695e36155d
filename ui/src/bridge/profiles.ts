import { asFields, integer, text, texts } from "./read_value";

export interface ProfileList {
  names: string[];
  current: number;
  cap: number;
  defaultName: string;
}

export function readProfiles(value: unknown): ProfileList | null {
  const fields = asFields(value);
  if (!fields) return null;
  return {
    names: texts(fields, "names"),
    current: integer(fields, "current", -1),
    cap: integer(fields, "cap", 3),
    defaultName: text(fields, "defaultName", "Default Tracking Profile"),
  };
}
