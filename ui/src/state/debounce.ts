// Runs an action once, a moment after the last request for it.
export class Debounce {
  private timer: ReturnType<typeof setTimeout> | undefined;

  constructor(
    private readonly action: () => void,
    private readonly wait: number,
  ) {}

  get pending(): boolean {
    return this.timer !== undefined;
  }

  request(): void {
    clearTimeout(this.timer);
    this.timer = setTimeout(() => this.flush(), this.wait);
  }

  // Runs a requested action now; nothing when none is due.
  flush(): void {
    if (this.timer === undefined) return;
    clearTimeout(this.timer);
    this.timer = undefined;
    this.action();
  }
}
