import type { ScreenPoint } from "../state/panel_layout.svelte";

// Where an event happened, in pixels of the screen; the page itself counts in scaled units.
export function screenPoint(event: { screenX: number; screenY: number }): ScreenPoint {
  return toPixels(event.screenX, event.screenY);
}

// Where a button was pressed. A press of its key has no place, so it is the button's.
export function pressPoint(event: MouseEvent): ScreenPoint {
  if (event.detail !== 0 || !(event.currentTarget instanceof Element)) return screenPoint(event);
  const { left, top } = event.currentTarget.getBoundingClientRect();
  return toPixels(window.screenX + left, window.screenY + top);
}

function toPixels(x: number, y: number): ScreenPoint {
  const scale = window.devicePixelRatio;
  return { x: Math.round(x * scale), y: Math.round(y * scale) };
}

export function isOutside(event: { clientX: number; clientY: number }): boolean {
  const { clientX: x, clientY: y } = event;
  return x < 0 || y < 0 || x >= window.innerWidth || y >= window.innerHeight;
}
