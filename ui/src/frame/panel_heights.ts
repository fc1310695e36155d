import type { Attachment } from "svelte/attachments";
import { outerHeight } from "./observed_height";

// Two columns are a grid of thin rows; each panel spans as many of them as it is high, so that the
// panels of a column follow each other without gaps.
export const thinRow = 4;

export function panelHeights(): Attachment<HTMLElement> {
  return (dashboard) => {
    const sizes = new ResizeObserver((entries) => {
      for (const entry of entries) setSpan(entry.target as HTMLElement, outerHeight(entry));
    });
    const watch = () => {
      for (const panel of dashboard.children) sizes.observe(panel);
    };
    const children = new MutationObserver(watch);
    children.observe(dashboard, { childList: true });
    watch();
    return () => {
      sizes.disconnect();
      children.disconnect();
    };
  };
}

function setSpan(panel: HTMLElement, height: number): void {
  panel.style.setProperty("--rows", String(Math.ceil(height / thinRow)));
}
