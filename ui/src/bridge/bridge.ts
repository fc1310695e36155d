import type { MethodName, PageMethods } from "./methods";

export type Answer =
  | { ok: true; value: unknown }
  | { ok: false; reason: "absent" | "rejected"; message: string };

// The program's methods are functions of the window that return promises. Any of them may be
// missing (a child window has only a few, a plain browser none) and any may reject; a call here
// never throws and never rejects.
export class Bridge {
  constructor(private readonly host: object) {}

  has(name: MethodName): boolean {
    return typeof this.find(name) === "function";
  }

  async call<N extends MethodName>(name: N, ...args: Parameters<PageMethods[N]>): Promise<Answer> {
    const method = this.find(name);
    if (typeof method !== "function") {
      return { ok: false, reason: "absent", message: `${name} is not there` };
    }
    try {
      return { ok: true, value: await (method as (...a: unknown[]) => unknown)(...args) };
    } catch (error) {
      const message = error instanceof Error ? error.message : String(error);
      return { ok: false, reason: "rejected", message };
    }
  }

  private find(name: MethodName): unknown {
    return (this.host as Record<string, unknown>)[name];
  }
}
