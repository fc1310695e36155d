import { readEnvironment, type Environment } from "../bridge/environment";
import { Poller } from "../bridge/poller";
import type { Bridge } from "../bridge/bridge";

export type TroubleKind = "hooksMissing" | "hooksPutBack" | "refusedSends" | "failures";

const pause = 1000;
// A program that blocks input is left, or comes to its end: nothing new for this long, and it is
// over.
const refusedFor = 5000;

// What the program has trouble with, the gravest first, until it is over or the user has read it.
export class Trouble {
  kinds = $state.raw<TroubleKind[]>([]);

  private readonly poller: Poller;
  private last: Environment | null = null;
  private lastRefusal = 0;

  constructor(private readonly bridge: Bridge) {
    this.poller = new Poller(
      () => this.read(),
      () => pause,
    );
  }

  start(): void {
    if (this.bridge.has("getEnvironment")) this.poller.start();
  }

  stop(): void {
    this.poller.stop();
  }

  dismiss(kind: TroubleKind): void {
    this.kinds = this.kinds.filter((shown) => shown !== kind);
  }

  private async read(): Promise<void> {
    const answer = await this.bridge.call("getEnvironment");
    const now = answer.ok ? readEnvironment(answer.value) : null;
    if (!now) return;
    const before = this.last ?? { hooksPutBack: 0, refusedSends: 0, failures: 0 };
    if (now.refusedSends > before.refusedSends) this.lastRefusal = Date.now();
    this.show("hooksMissing", now.hooksMissing, !now.hooksMissing);
    this.show("refusedSends", now.refusedSends > before.refusedSends, this.refusalsAreOver());
    this.show("hooksPutBack", now.hooksPutBack > before.hooksPutBack, false);
    this.show("failures", now.failures > before.failures, false);
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

const order: TroubleKind[] = ["hooksMissing", "refusedSends", "failures", "hooksPutBack"];
