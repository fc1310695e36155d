import { Poller } from "../bridge/poller";
import { readStatus, type TrackerStatus } from "../bridge/status";
import type { Bridge } from "../bridge/bridge";

const shownPause = 150;
const hiddenPause = 1000;
const failuresUntilLost = 8;

// The program's live state as last reported; null while it has never answered or stopped answering.
export class Engine {
  status = $state.raw<TrackerStatus | null>(null);

  private readonly poller: Poller;
  private readonly listeners: ((status: TrackerStatus) => void)[] = [];
  private last = "";
  private failures = 0;

  constructor(
    private readonly bridge: Bridge,
    isHidden: () => boolean,
  ) {
    this.poller = new Poller(
      () => this.read(),
      () => (isHidden() ? hiddenPause : shownPause),
    );
  }

  start(): void {
    if (this.bridge.has("getTrackerStatus")) this.poller.start();
  }

  stop(): void {
    this.poller.stop();
  }

  // To be called after a request, so that its effect is seen without waiting for the next turn.
  refresh(): void {
    this.poller.poke();
  }

  // The listener gets every answer, also one that changes nothing.
  onAnswer(listener: (status: TrackerStatus) => void): void {
    this.listeners.push(listener);
  }

  private async read(): Promise<void> {
    const answer = await this.bridge.call("getTrackerStatus");
    const status = answer.ok ? readStatus(answer.value) : null;
    if (!status) {
      this.failures += 1;
      if (this.failures >= failuresUntilLost) this.set(null);
      return;
    }
    this.failures = 0;
    this.set(status);
    for (const listener of this.listeners) listener(status);
  }

  // An equal status keeps the old object, so that nothing is drawn again for it.
  private set(status: TrackerStatus | null): void {
    const written = JSON.stringify(status);
    if (written === this.last) return;
    this.last = written;
    this.status = status;
  }
}
