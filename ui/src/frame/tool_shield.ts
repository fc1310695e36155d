import { totalMs } from "../text/interval";
import type { ToolSettings } from "../bridge/tool_settings";

// From this interval on a user can still work in the page between two clicks.
const leisurely = 1000;

// Whether clicks at the cursor come so fast that the page must not take them for the user's: on
// their way to the page or out of it they would change whatever lies under the cursor.
export function followsCursorFast(settings: ToolSettings["clicker"]): boolean {
  return !settings.fixed && totalMs(settings.interval) < leisurely;
}

// With the page in front, the key spammer presses into the page. Only the keys that lead to the
// stop button keep their meaning.
const passing = ["Tab", "Enter"];

export function holdBackKey(event: KeyboardEvent, keySpamming: boolean): void {
  if (!keySpamming || passing.includes(event.key)) return;
  event.preventDefault();
  event.stopPropagation();
}
