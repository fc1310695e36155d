import { readEnvironment, type Environment } from "../bridge/environment";
import { Poller } from "../bridge/poller";
import type { Bridge } from "../bridge/bridge";

const pause = 1000;

// The program's surroundings as last reported; the defaults while it has never told them.
export class Surroundings {
  now = $state.raw<Environment>(readEnvironment({})!);
  // Settled with the first answer, or when none can come.
  readonly ready: Promise<void>;

  private answered = () => {};
  private readonly poller: Poller;
  private readonly listeners: ((now: Environment) => void)[] = [];
  private last = "";

  constructor(private readonly bridge: Bridge) {
    this.ready = new Promise((settle) => (this.answered = settle));
    this.poller = new Poller(
      () => this.read(),
      () => pause,
    );
  }

  start(): void {
    if (this.bridge.has("getEnvironment")) this.poller.start();
    else this.answered();
  }

  // The listener gets every answer, also one that changes nothing.
  onAnswer(listener: (now: Environment) => void): void {
    this.listeners.push(listener);
  }

  private async read(): Promise<void> {
    const answer = await this.bridge.call("getEnvironment");
    const now = answer.ok ? readEnvironment(answer.value) : null;
    if (now) this.take(now);
    this.answered();
  }

  private take(now: Environment): void {
    const written = JSON.stringify(now);
    if (written !== this.last) this.now = now;
    this.last = written;
    for (const listener of this.listeners) listener(now);
  }
}
