import { getContext, setContext } from "svelte";
import { Bridge } from "../bridge/bridge";
import { hotkeyMood } from "../text/hotkey_texts";
import { worksAlone, type PanelId } from "../text/panel_order";
import { Engine } from "./engine.svelte";
import { LocationPick } from "./location_pick.svelte";
import { PanelLayout, type ScreenPoint } from "./panel_layout.svelte";
import { Preferences } from "./preferences.svelte";
import { Profiles } from "./profiles.svelte";
import { Surroundings } from "./surroundings.svelte";
import { Theme } from "./theme.svelte";
import { Tools } from "./tools.svelte";
import { Trouble } from "./trouble.svelte";
import { Update } from "./update.svelte";
import type { CaptureSlot, HotkeySlot } from "../bridge/methods";

// The program saves the settings in use every five seconds.
const sessionFileLag = 8000;

// How long a window that cannot read the status shows that a key is awaited.
const blindCaptureTime = 6000;

// Everything that the page knows and can ask for; one for each window.
export class App {
  readonly bridge: Bridge;
  // A window of its own for one panel. It can send requests, and reads at most what the program
  // has last written to its files.
  readonly isChild: boolean;
  readonly engine: Engine;
  readonly tools: Tools;
  readonly pick: LocationPick;
  readonly preferences: Preferences;
  readonly profiles: Profiles;
  readonly layout: PanelLayout;
  readonly theme: Theme;
  readonly update: Update;
  readonly surroundings: Surroundings;
  readonly trouble: Trouble;
  // Settled when the window has the size that was last asked for by the program.
  fitted: Promise<void> = Promise.resolve();
  // What is read out by screen readers.
  notice = $state("");
  // What the program could not do, in its own words.
  problem = $state("");

  private blindCapture = $state<CaptureSlot | "">("");
  private blindTimer: ReturnType<typeof setTimeout> | undefined;

  constructor(private readonly host: Window) {
    this.bridge = new Bridge(host);
    this.isChild = this.bridge.has("closeThisWindow");
    this.engine = new Engine(this.bridge, () => host.document.hidden);
    const staleFor = this.isChild ? sessionFileLag : 0;
    this.tools = new Tools(this.bridge, () => this.pick.waiting, staleFor);
    this.pick = new LocationPick(this.bridge, this.tools);
    this.preferences = new Preferences(this.bridge);
    this.profiles = new Profiles(this.bridge, () => this.refresh());
    this.layout = new PanelLayout(this.bridge);
    this.theme = new Theme(host, host.document.documentElement);
    this.update = new Update(this.bridge);
    this.surroundings = new Surroundings(this.bridge);
    this.trouble = new Trouble(this.surroundings);
    this.engine.onAnswer(({ restore }) => {
      if (this.isChild || restore.length === 0) return;
      this.layout.restore(restore);
      this.tools.refresh();
    });
  }

  async start(): Promise<void> {
    this.engine.start();
    this.tools.start();
    this.surroundings.start();
    await Promise.all([this.preferences.load(), this.profiles.load(), this.surroundings.ready]);
    if (!this.preferences.loaded) return;
    this.layout.adopt(this.preferences);
    this.theme.adopt(this.preferences, this.surroundings.now.themeKey);
  }

  // The slot that waits for a key, or nothing.
  get capturing(): string {
    return this.engine.status?.reassigning ?? this.blindCapture;
  }

  // The hotkey's name while pressing it does something.
  readyKey(slot: HotkeySlot): string {
    const { status } = this.engine;
    const mood = hotkeyMood(status, this.preferences.switches.hotkeysEnabled);
    return mood === "ready" ? (status?.hotkeys[slot] ?? "") : "";
  }

  async capture(slot: CaptureSlot): Promise<void> {
    const answer = await this.bridge.call("reassignKey", slot);
    this.engine.refresh();
    if (!answer.ok || this.bridge.has("getTrackerStatus")) return;
    this.blindCapture = slot;
    clearTimeout(this.blindTimer);
    this.blindTimer = setTimeout(() => (this.blindCapture = ""), blindCaptureTime);
  }

  // A mouse button went down in the page.
  pressSeen(): void {
    const status = this.engine.status;
    this.pick.pressSeen(status?.autoClicking === true || status?.state === "Playing");
  }

  canDetach(id: PanelId): boolean {
    return !this.isChild && worksAlone(id) && this.bridge.has("detachPanel");
  }

  async detach(id: PanelId, at: ScreenPoint): Promise<void> {
    this.tools.flush();
    this.problem = await this.layout.detach(id, at, this.theme.key);
  }

  // Sends waiting edits first, so that a tool never starts with the settings from before them.
  async run(method: "startSpammer" | "stopSpammer" | "startKeySpam" | "stopKeySpam") {
    this.tools.flush();
    // The spammed key must not press the button that started it.
    const focused = this.host.document.activeElement;
    if (method === "startKeySpam" && focused instanceof HTMLElement) focused.blur();
    await this.bridge.call(method);
    this.engine.refresh();
  }

  // Setting the lock again, to what it is, frees the hotkeys.
  async unlock(): Promise<void> {
    await this.preferences.set("hotkeyLock", true);
    this.engine.refresh();
  }

  say(text: string): void {
    if (text !== "") this.notice = text;
  }

  private refresh(): void {
    this.engine.refresh();
    this.tools.refresh();
  }
}

const key = Symbol("app");

export function provideApp(app: App): void {
  setContext(key, app);
}

export function useApp(): App {
  return getContext<App>(key);
}
