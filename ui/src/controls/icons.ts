// Drawn on a grid of 20 by 20, as strokes.
export const icons = {
  mark: "M10 2.5 17.5 16.5 10 12.8 2.5 16.5Z",
  mouse: "M10 2.5a4.5 4.5 0 0 1 4.5 4.5v6a4.5 4.5 0 0 1-9 0V7A4.5 4.5 0 0 1 10 2.5ZM10 5.5v3",
  keyboard: "M2.5 5.5h15v9h-15ZM5.5 8.5h.01M8.5 8.5h.01M11.5 8.5h.01M14.5 8.5h.01M6.5 11.5h7",
  macro: "M4 4.5v11M7.5 6l8 4-8 4Z",
  profiles: "M10 3 17 6.5 10 10 3 6.5ZM3 10l7 3.5 7-3.5M3 13.5 10 17l7-3.5",
  sliders: "M3 6h8M15 6h2M3 14h2M9 14h8M13 4v4M7 12v4",
  locked: "M5 9h10v7.5H5ZM7 9V6.5a3 3 0 0 1 6 0V9",
  unlocked: "M5 9h10v7.5H5ZM7 9V6a3 3 0 0 1 5.8-1",
  off: "M4 4 16 16M10 3a7 7 0 1 0 .01 0",
  down: "M5 8l5 5 5-5",
  up: "M5 12l5-5 5 5",
  grip: "M7.5 5h.01M12.5 5h.01M7.5 10h.01M12.5 10h.01M7.5 15h.01M12.5 15h.01",
  popout: "M11 4h5v5M16 4l-7 7M8 5H4v11h11v-4",
  dock: "M16 4l-7 7M9 6v5h5M12 16H4V8",
  close: "M5 5l10 10M15 5 5 15",
  plus: "M10 4v12M4 10h12",
  play: "M6.5 4.5 15.5 10l-9 5.5Z",
  stop: "M5.5 5.5h9v9h-9Z",
  target: "M10 4.5a5.5 5.5 0 1 0 .01 0M10 2v4M10 14v4M2 10h4M14 10h4",
  warning: "M10 3.5 17.5 16.5h-15ZM10 8.5v3.5M10 14.4h.01",
  info: "M10 3a7 7 0 1 0 .01 0M10 9.5v4M10 6.6h.01",
  check: "M4.5 10.5 8.5 14.5 15.5 6",
  download: "M10 3.5v9M6 9l4 4 4-4M4 16.5h12",
} as const;

export type IconName = keyof typeof icons;
