import type { ScreenPoint } from "../state/panel_layout.svelte";

// Where an event happened, in pixels of the screen; the page itself counts in scaled units.
export function screenPoint(event: { screenX: number; screenY: number }): ScreenPoint {
  const scale = window.devicePixelRatio;
  return { x: Math.round(event.screenX * scale), y: Math.round(event.screenY * scale) };
}

export function isOutside(event: { clientX: number; clientY: number }): boolean {
  const { clientX: x, clientY: y } = event;
  return x < 0 || y < 0 || x >= window.innerWidth || y >= window.innerHeight;
}
