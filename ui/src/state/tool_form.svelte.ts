import { Debounce } from "./debounce";

const sendPause = 200;

// The settings of one tool as the page shows them. An edit is sent a moment later; what the
// program reports is taken over only when nobody is editing, so that a slow answer never undoes
// what was just typed.
export class ToolForm<T extends object> {
  values = $state.raw<T>() as T;

  private readonly sending: Debounce;
  private edits = $state(0);
  private editedAt = Number.NEGATIVE_INFINITY;
  private held = false;

  constructor(
    initial: T,
    private readonly send: (values: T) => void,
    private readonly staleFor = 0,
  ) {
    this.values = initial;
    this.sending = new Debounce(() => this.send(this.values), sendPause);
  }

  edit(change: Partial<T>): void {
    const next = { ...this.values, ...change };
    if (JSON.stringify(next) === JSON.stringify(this.values)) return;
    this.values = next;
    this.edits += 1;
    this.editedAt = Date.now();
    this.sending.request();
  }

  // Sends a waiting edit at once.
  flush(): void {
    this.sending.flush();
  }

  // While a text field of the form is being typed in.
  hold(): void {
    this.held = true;
  }

  release(): void {
    this.held = false;
    this.flush();
  }

  // The number of edits so far: a report asked for before the latest edit is out of date.
  get version(): number {
    return this.edits;
  }

  receive(values: T, askedAt: number): void {
    if (this.held || this.sending.pending || askedAt !== this.edits) return;
    if (Date.now() - this.editedAt < this.staleFor) return;
    if (JSON.stringify(values) !== JSON.stringify(this.values)) this.values = values;
  }
}
