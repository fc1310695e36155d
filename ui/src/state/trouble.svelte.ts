import type { Environment } from "../bridge/environment";
import type { Surroundings } from "./surroundings.svelte";

export type TroubleKind = "hooksMissing" | "hooksPutBack" | "refusedSends" | "failures";

const order: TroubleKind[] = ["hooksMissing", "refusedSends", "failures", "hooksPutBack"];

// A program that blocks input is left, or comes to its end: nothing new for this long, and it is
// over.
const refusedFor = 5000;

// What the program has trouble with, the gravest first, until it is over or the user has read it.
export class Trouble {
  kinds = $state.raw<TroubleKind[]>([]);

  private last = { hooksPutBack: 0, refusedSends: 0, failures: 0 };
  private lastRefusal = 0;

  constructor(surroundings: Surroundings) {
    surroundings.onAnswer((now) => this.compare(now));
  }

  dismiss(kind: TroubleKind): void {
    this.kinds = this.kinds.filter((shown) => shown !== kind);
  }

  private compare(now: Environment): void {
    const { last } = this;
    if (now.refusedSends > last.refusedSends) this.lastRefusal = Date.now();
    this.show("hooksMissing", now.hooksMissing, !now.hooksMissing);
    this.show("refusedSends", now.refusedSends > last.refusedSends, this.refusalsAreOver());
    this.show("hooksPutBack", now.hooksPutBack > last.hooksPutBack, false);
    this.show("failures", now.failures > last.failures, false);
    this.last = now;
  }

  private refusalsAreOver(): boolean {
    return Date.now() - this.lastRefusal >= refusedFor;
  }

  private show(kind: TroubleKind, begins: boolean, ends: boolean): void {
    const shown = this.kinds.includes(kind);
    if (begins && !shown) this.kinds = order.filter((k) => k === kind || this.kinds.includes(k));
    if (ends && shown) this.dismiss(kind);
  }
}
