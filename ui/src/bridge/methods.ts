// What the program offers to the page, with the arguments as the page passes them. Values that are
// several numbers or words travel as one text with commas.
export interface PageMethods {
  resizeWindow(width: number, height: number): void;
  updateSpammer(settings: string): void;
  startSpammer(): void;
  stopSpammer(): void;
  updateKeySpam(settings: string): void;
  startKeySpam(): void;
  stopKeySpam(): void;
  removeKeySpamTarget(index: number): void;
  setKeySpamChordMode(on: Flag): void;
  pickLocation(): void;
  getAppSettings(): unknown;
  markWarningSeen(id: string): void;
  setAppSetting(key: string, on: Flag): void;
  setPanelOrder(ids: string): void;
  resetHotkeys(): void;
  openLink(which: "docs" | "discord"): void;
  getTrackerStatus(): unknown;
  clearProfile(): void;
  addProfile(name: string): void;
  deleteProfile(): void;
  switchProfile(index: number): void;
  getProfiles(): unknown;
  startUpdate(): unknown;
  getSettings(): unknown;
  reassignKey(slot: CaptureSlot): void;
  detachPanel(title: string, id: string, x: number, y: number, themeKey: string): unknown;
  getActivity(): unknown;
  getEnvironment(): unknown;
  pagePainted(): void;
  beginWindowDrag(text: string): void;
  closeThisWindow(): void;
}

export type MethodName = keyof PageMethods;
export type Flag = "0" | "1";
export type HotkeySlot = "rec" | "play" | "auto" | "keyspamhotkey" | "unlock";
export type CaptureSlot = HotkeySlot | "keyspamtarget";

export function flag(on: boolean): Flag {
  return on ? "1" : "0";
}
