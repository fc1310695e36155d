import type { HotkeySlot } from "../bridge/methods";

export const slotNames: Record<HotkeySlot, string> = {
  auto: "Auto clicker",
  keyspamhotkey: "Key spammer",
  rec: "Record macro",
  play: "Play macro",
  unlock: "Lock and unlock",
};

// The order in which the program compares a pressed key with the hotkeys; the first match acts.
const order: HotkeySlot[] = ["unlock", "rec", "play", "auto", "keyspamhotkey"];

export const leftButton = "Left Mouse";

// For each hotkey that never acts because another one has the same key: that other one. The unlock
// key means nothing of its own while the lock is off.
export function shadowedHotkeys(
  hotkeys: Record<HotkeySlot, string>,
  lockOn: boolean,
): Partial<Record<HotkeySlot, HotkeySlot>> {
  const taken = new Map<string, HotkeySlot>();
  const shadowed: Partial<Record<HotkeySlot, HotkeySlot>> = {};
  for (const slot of order) {
    const key = hotkeys[slot];
    if (key === "" || (slot === "unlock" && !lockOn)) continue;
    const first = taken.get(key);
    if (first) shadowed[slot] = first;
    else taken.set(key, slot);
  }
  return shadowed;
}

// Hotkeys on the left button take every left click away from every program, this page included.
export function leftButtonTaken(hotkeys: Record<HotkeySlot, string>): HotkeySlot[] {
  return order.filter((slot) => slot !== "unlock" && hotkeys[slot] === leftButton);
}
