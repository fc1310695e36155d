import type { Bridge } from "../bridge/bridge";

export type UpdatePhase = "none" | "offered" | "downloading" | "installing" | "failed";

// The program answers a request made while an update is already under way with this text.
const alreadyRunning = "An update is already in progress.";

// A newer version of the program, from the offer to the hand-over to the installer.
export class Update {
  phase = $state<UpdatePhase>("none");
  offered = $state("");
  own = $state("");
  received = $state(0);
  total = $state(0);
  // What the program answered, as it stands.
  message = $state("");

  constructor(private readonly bridge: Bridge) {}

  offer(offered: string, own: string): void {
    this.offered = offered;
    this.own = own;
    if (this.phase === "none" || this.phase === "failed") this.phase = "offered";
  }

  progress(received: number, total: number): void {
    this.received = received;
    this.total = total;
    this.phase = "downloading";
  }

  installing(): void {
    this.phase = "installing";
  }

  dismiss(): void {
    this.phase = "none";
    this.message = "";
  }

  // The call is settled only when the update does not happen.
  async start(): Promise<void> {
    this.message = "";
    this.received = 0;
    this.total = 0;
    this.phase = "downloading";
    const answer = await this.bridge.call("startUpdate");
    this.message = answer.ok ? String(answer.value ?? "") : answer.message;
    if (this.message !== alreadyRunning) this.phase = "failed";
  }
}
