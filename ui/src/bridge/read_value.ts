// Readers for values that come from outside: each takes what is there when it has the right type
// and the fallback otherwise, so that a page never shows "undefined" or "NaN".
export type Fields = Record<string, unknown>;

// A method's answer as an object. An answer that arrives as JSON text is read first.
export function asFields(value: unknown): Fields | null {
  const read = typeof value === "string" ? parseText(value) : value;
  return typeof read === "object" && read !== null && !Array.isArray(read) ? (read as Fields) : null;
}

function parseText(text: string): unknown {
  try {
    return JSON.parse(text);
  } catch {
    return null;
  }
}

export function integer(fields: Fields, key: string, fallback: number): number {
  const value = fields[key];
  return typeof value === "number" && Number.isFinite(value) ? Math.trunc(value) : fallback;
}

export function decimal(fields: Fields, key: string, fallback: number): number {
  const value = fields[key];
  return typeof value === "number" && Number.isFinite(value) ? value : fallback;
}

export function flagOf(fields: Fields, key: string, fallback: boolean): boolean {
  const value = fields[key];
  return typeof value === "boolean" ? value : fallback;
}

export function text(fields: Fields, key: string, fallback = ""): string {
  const value = fields[key];
  return typeof value === "string" ? value : fallback;
}

export function texts(fields: Fields, key: string): string[] {
  const value = fields[key];
  return Array.isArray(value) ? value.filter((item) => typeof item === "string") : [];
}
