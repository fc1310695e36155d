import { flag } from "../bridge/methods";
import { asFields, flagOf, texts } from "../bridge/read_value";
import type { Bridge } from "../bridge/bridge";

export const switchKeys = [
  "alwaysOnTop",
  "launchOnStartup",
  "startMinimized",
  "hotkeysEnabled",
  "hotkeyLock",
  "stopToolsWithMacro",
  "disableAnimations",
  "showWarnings",
] as const;

export type SwitchKey = (typeof switchKeys)[number];
export type Switches = Record<SwitchKey, boolean>;

// What the program starts with when it has saved nothing.
export const defaultSwitches: Switches = {
  alwaysOnTop: false,
  launchOnStartup: false,
  startMinimized: false,
  hotkeysEnabled: true,
  hotkeyLock: true,
  stopToolsWithMacro: true,
  disableAnimations: false,
  showWarnings: true,
};

// The program-wide preferences, as read at start and after each change.
export class Preferences {
  switches = $state.raw<Switches>(defaultSwitches);
  seenWarnings = $state.raw<string[]>([]);
  minimizedPanels = $state.raw<string[]>([]);
  panelOrder = $state.raw<string[]>([]);
  loaded = $state(false);
  readonly available: boolean;

  constructor(private readonly bridge: Bridge) {
    this.available = bridge.has("getAppSettings") && bridge.has("setAppSetting");
  }

  async load(): Promise<void> {
    const answer = await this.bridge.call("getAppSettings");
    const fields = answer.ok ? asFields(answer.value) : null;
    if (!fields) return;
    // A switch that the program accepts but does not report keeps what was chosen here.
    const switches = { ...this.switches };
    for (const key of switchKeys) switches[key] = flagOf(fields, key, switches[key]);
    this.switches = switches;
    this.seenWarnings = texts(fields, "seenWarnings");
    this.minimizedPanels = texts(fields, "minimizedPanels");
    this.panelOrder = texts(fields, "panelOrder");
    this.loaded = true;
  }

  async set(key: SwitchKey, on: boolean): Promise<void> {
    this.switches = { ...this.switches, [key]: on };
    const answer = await this.bridge.call("setAppSetting", key, flag(on));
    if (!answer.ok) this.switches = { ...this.switches, [key]: !on };
    await this.load();
  }

  hasSeen(warning: string): boolean {
    return this.seenWarnings.includes(warning);
  }

  async markSeen(warning: string): Promise<void> {
    if (this.hasSeen(warning)) return;
    this.seenWarnings = [...this.seenWarnings, warning];
    await this.bridge.call("markWarningSeen", warning);
  }
}
