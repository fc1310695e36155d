import { getContext, setContext } from "svelte";
import { Bridge } from "../bridge/bridge";
import { Engine } from "./engine.svelte";
import { LocationPick } from "./location_pick.svelte";
import { PanelLayout } from "./panel_layout.svelte";
import { Preferences } from "./preferences.svelte";
import { Theme } from "./theme.svelte";
import { Tools } from "./tools.svelte";
import type { CaptureSlot } from "../bridge/methods";

// Everything that the page knows and can ask for; one for each window.
export class App {
  readonly bridge: Bridge;
  // A window of its own for one panel: it can send requests and reads nothing back.
  readonly isChild: boolean;
  readonly engine: Engine;
  readonly tools: Tools;
  readonly pick: LocationPick;
  readonly preferences: Preferences;
  readonly layout: PanelLayout;
  readonly theme: Theme;
  notice = $state("");
  // The slot armed from a window that cannot read the status.
  blindCapture = $state<CaptureSlot | "">("");

  constructor(host: Window) {
    this.bridge = new Bridge(host);
    this.isChild = this.bridge.has("closeThisWindow");
    this.engine = new Engine(this.bridge, () => host.document.hidden);
    this.tools = new Tools(this.bridge, () => this.pick.waiting);
    this.pick = new LocationPick(this.bridge, this.tools);
    this.preferences = new Preferences(this.bridge);
    this.layout = new PanelLayout(this.bridge);
    this.theme = new Theme(host, host.document.documentElement);
    this.engine.onAnswer((status) => {
      if (status.restore.length > 0) {
        this.layout.restore(status.restore);
        this.tools.refresh();
      }
    });
  }

  async start(): Promise<void> {
    this.engine.start();
    this.tools.start();
    await this.preferences.load();
    if (!this.preferences.loaded) return;
    this.layout.adopt(this.preferences);
    this.theme.adopt(this.preferences);
  }

  async capture(slot: CaptureSlot): Promise<void> {
    await this.bridge.call("reassignKey", slot);
    this.engine.refresh();
  }

  // Sends waiting edits first, so that a tool never starts with the settings from before them.
  async run(method: "startSpammer" | "stopSpammer" | "startKeySpam" | "stopKeySpam") {
    this.tools.flush();
    await this.bridge.call(method);
    this.engine.refresh();
  }

  // Setting the lock again, to what it is, frees the hotkeys.
  async unlock(): Promise<void> {
    await this.preferences.set("hotkeyLock", true);
    this.engine.refresh();
  }

  // Read out by screen readers.
  say(text: string): void {
    if (text !== "") this.notice = text;
  }
}

const key = Symbol("app");

export function provideApp(app: App): void {
  setContext(key, app);
}

export function useApp(): App {
  return getContext<App>(key);
}
