// Asks the same question again and again: one call under way at a time, the next one a while after
// the answer.
export class Poller {
  private timer: ReturnType<typeof setTimeout> | undefined;
  private underWay = false;
  private again = false;
  private stopped = true;

  // `ask` must not reject. `pause` gives the milliseconds until the next question.
  constructor(
    private readonly ask: () => Promise<unknown>,
    private readonly pause: () => number,
  ) {}

  start(): void {
    this.stopped = false;
    void this.run();
  }

  stop(): void {
    this.stopped = true;
    clearTimeout(this.timer);
  }

  // Asks at once, or right after the call under way, whose answer may be older than the reason
  // for asking.
  poke(): void {
    if (this.stopped) return;
    if (this.underWay) this.again = true;
    else void this.run();
  }

  private async run(): Promise<void> {
    clearTimeout(this.timer);
    this.underWay = true;
    do {
      this.again = false;
      await this.ask();
    } while (this.again && !this.stopped);
    this.underWay = false;
    if (!this.stopped) this.timer = setTimeout(() => void this.run(), this.pause());
  }
}
