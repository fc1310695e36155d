import type { ProfileList } from "../bridge/profiles";
import type { EngineState } from "../bridge/status";
import { formatCount } from "./summaries";

export const longestName = 40;

// The program takes the brackets and quotes out of every value that it is given and undoes no
// escaping, so a name with one of these characters would come back changed.
export function cleanName(typed: string): string {
  return typed.replace(/["[\]\\\u0000-\u001f\u007f]/g, "").slice(0, longestName);
}

// The profile with the default name is only ever emptied, and the last profile stays.
export function canDelete(list: ProfileList): boolean {
  const name = list.names[list.current];
  return name !== undefined && name !== list.defaultName && list.names.length > 1;
}

export interface Question {
  kind: "clear" | "delete";
  title: string;
  detail: string;
  confirm: string;
}

export function askClear(name: string, events: number): Question {
  return {
    kind: "clear",
    title: `Clear “${name}”?`,
    detail: `${lossOf(events)} and its clicker and key settings go back to the defaults. The profile stays.`,
    confirm: "Clear profile",
  };
}

export function askDelete(name: string, events: number): Question {
  return {
    kind: "delete",
    title: `Delete “${name}”?`,
    detail: `${lossOf(events)} and the profile is removed with its settings. The next profile is used.`,
    confirm: "Delete profile",
  };
}

// Why profiles cannot be changed right now; empty when they can.
export function whyFrozen(state: EngineState): string {
  if (state === "Playing") return "Stop the macro to change profiles.";
  if (state === "Recording") return "Stop the recording to change profiles.";
  return "";
}

function lossOf(events: number): string {
  if (events === 0) return "It holds no macro,";
  return `Its macro of ${formatCount(events)} ${events === 1 ? "event" : "events"} is lost`;
}
