import type { MacroOptions } from "../bridge/tool_settings";
import { describeDuration } from "./interval";
import { formatCount } from "./summaries";

export function eventCount(count: number): string {
  return `${formatCount(count)} ${count === 1 ? "event" : "events"}`;
}

export function recordedKinds(options: MacroOptions): string {
  const kinds = [
    options.moves ? (options.relative ? "relative mouse motion" : "mouse moves") : "",
    options.clicks ? "clicks" : "",
    options.wheel ? "wheel" : "",
    options.keys ? "keys" : "",
  ].filter((kind) => kind !== "");
  return kinds.length === 0 ? "nothing" : kinds.join(", ");
}

export function playback(options: MacroOptions): string {
  const speed = options.speed === 1 ? "at the recorded speed" : `at ${options.speed} × speed`;
  if (!options.loop) return `once, ${speed}`;
  const pause = options.loopPause > 0 ? `, ${describeDuration(options.loopPause)} between` : "";
  return `again and again${pause}, ${speed}`;
}
