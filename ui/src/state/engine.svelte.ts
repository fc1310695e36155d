import { Poller } from "../bridge/poller";
import { asFields, integer } from "../bridge/read_value";
import { readStatus, type TrackerStatus } from "../bridge/status";
import type { Bridge } from "../bridge/bridge";

const shownPause = 100;
const hiddenPause = 1000;
// The status is asked for at least this often, whatever the counter of changes says.
const longestSilence = 1000;
const failuresUntilLost = 8;

// The program's live state as last reported; null while it has never answered or stopped answering.
export class Engine {
  status = $state.raw<TrackerStatus | null>(null);

  private readonly poller: Poller;
  private readonly listeners: ((status: TrackerStatus) => void)[] = [];
  private last = "";
  private failures = 0;
  private changes = -1;
  private lastAsked = 0;
  private poked = true;

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
    this.poked = true;
    this.poller.poke();
  }

  // The listener gets every answer, also one that changes nothing.
  onAnswer(listener: (status: TrackerStatus) => void): void {
    this.listeners.push(listener);
  }

  // The status is written to a file at every call, and is mostly the same: the light question first.
  private async read(): Promise<void> {
    const due = this.poked || Date.now() - this.lastAsked >= longestSilence;
    const changed = await this.hasChanged();
    if (!due && !changed) return;
    this.poked = false;
    this.lastAsked = Date.now();
    await this.readStatus();
  }

  // True as well when the program cannot tell.
  private async hasChanged(): Promise<boolean> {
    if (!this.bridge.has("getActivity")) return true;
    const answer = await this.bridge.call("getActivity");
    const fields = answer.ok ? asFields(answer.value) : null;
    if (!fields) return true;
    const changes = integer(fields, "changes", -1);
    const moved = changes !== this.changes;
    this.changes = changes;
    return moved;
  }

  private async readStatus(): Promise<void> {
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
