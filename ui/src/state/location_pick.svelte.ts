import type { Bridge } from "../bridge/bridge";
import type { Tools } from "./tools.svelte";

// Waiting for the click that chooses the fixed point. The program does not say when that click has
// come: a new point tells it, and so does any press that reaches the page, since the program keeps
// the picking click, and the cancelling one, from every window.
export class LocationPick {
  waiting = $state(false);

  private before = "";

  constructor(
    private readonly bridge: Bridge,
    private readonly tools: Tools,
  ) {
    tools.onReport(() => this.compare());
  }

  async begin(): Promise<void> {
    // Compared with what the program holds now, and not with a report from before the last edit.
    this.tools.flush();
    await this.tools.read();
    this.before = this.snapshot();
    const answer = await this.bridge.call("pickLocation");
    if (!answer.ok) return;
    this.waiting = true;
    this.tools.refresh();
  }

  // A mouse button went down in the page. Clicks made by the tools themselves tell nothing: the
  // program lets its own clicks through.
  pressSeen(madeByTools: boolean): void {
    if (!this.waiting || madeByTools) return;
    this.waiting = false;
    this.tools.refresh();
  }

  private compare(): void {
    if (this.waiting && this.snapshot() !== this.before) this.waiting = false;
  }

  private snapshot(): string {
    const reported = this.tools.reported;
    return JSON.stringify([reported?.point, reported?.clicker.fixed]);
  }
}
