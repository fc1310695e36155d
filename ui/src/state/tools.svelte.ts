import { Poller } from "../bridge/poller";
import {
  defaultToolSettings,
  readToolSettings,
  type ClickerSettings,
  type KeySpamSettings,
  type ToolSettings,
} from "../bridge/tool_settings";
import { clickerText, keySpamText } from "../text/tool_texts";
import { ToolForm } from "./tool_form.svelte";
import type { Bridge } from "../bridge/bridge";

const calmPause = 2000;
const eagerPause = 150;

// The tool settings of the current profile. They are read again and again, since a profile switch,
// the location picker and a detached panel change them behind the page's back.
export class Tools {
  readonly clicker: ToolForm<ClickerSettings>;
  readonly keySpam: ToolForm<KeySpamSettings>;
  point = $state.raw(defaultToolSettings.point);
  macro = $state.raw(defaultToolSettings.macro);
  // As last read from the program, whatever the forms hold; null before the first report.
  reported = $state.raw<ToolSettings | null>(null);
  readonly readable: boolean;

  private readonly poller: Poller;
  private readonly listeners: (() => void)[] = [];

  constructor(
    private readonly bridge: Bridge,
    private readonly isEager: () => boolean,
    // How long after an edit, in milliseconds, a report may still be from before it.
    staleFor = 0,
  ) {
    this.clicker = new ToolForm(defaultToolSettings.clicker, (values) => {
      void bridge.call("updateSpammer", clickerText(values));
    }, staleFor);
    this.keySpam = new ToolForm(defaultToolSettings.keySpam, (values) => {
      void bridge.call("updateKeySpam", keySpamText(values));
    }, staleFor);
    this.readable = bridge.has("getSettings");
    this.poller = new Poller(
      () => this.read(),
      () => (this.isEager() ? eagerPause : calmPause),
    );
  }

  start(): void {
    if (this.readable) this.poller.start();
  }

  refresh(): void {
    this.poller.poke();
  }

  flush(): void {
    this.clicker.flush();
    this.keySpam.flush();
  }

  // The listener is called after every report that was taken in.
  onReport(listener: () => void): void {
    this.listeners.push(listener);
  }

  async read(): Promise<void> {
    const clickerVersion = this.clicker.version;
    const keySpamVersion = this.keySpam.version;
    const answer = await this.bridge.call("getSettings");
    const settings = answer.ok ? readToolSettings(answer.value) : null;
    if (!settings) return;
    this.reported = settings;
    this.clicker.receive(settings.clicker, clickerVersion);
    this.keySpam.receive(settings.keySpam, keySpamVersion);
    if (JSON.stringify(settings.point) !== JSON.stringify(this.point)) this.point = settings.point;
    if (JSON.stringify(settings.macro) !== JSON.stringify(this.macro)) this.macro = settings.macro;
    for (const listener of this.listeners) listener();
  }
}
