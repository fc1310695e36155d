// A button that asks for a key must not act while Enter is still down, as Enter would then be the
// key that is captured. Space acts on release by itself.
export class ReleasedEnter {
  private held = false;

  constructor(private readonly act: () => void) {}

  down(event: KeyboardEvent): void {
    if (event.key !== "Enter") return;
    event.preventDefault();
    this.held = true;
  }

  up(event: KeyboardEvent): void {
    if (event.key === "Enter" && this.held) this.act();
    this.held = false;
  }
}
