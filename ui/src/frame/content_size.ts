import type { Attachment } from "svelte/attachments";
import type { App } from "../state/app.svelte";

let requested = "";

// Asks the program to make the window as large as its content.
export function requestSize(document: Document, app: App): void {
  const { width, height } = contentSize(document, app.isChild);
  requested = `${width},${height}`;
  void app.bridge.call("resizeWindow", width, height);
}

// Keeps the window of one panel as high as the panel while that grows and shrinks.
export function keepFitting(app: App): Attachment<HTMLElement> {
  return (dashboard) => {
    const sizes = new ResizeObserver(() => {
      const { width, height } = contentSize(document, app.isChild);
      if (requested !== "" && requested !== `${width},${height}`) requestSize(document, app);
    });
    sizes.observe(dashboard);
    return () => sizes.disconnect();
  };
}

// The size at which the window shows all of its content: the present width, and the height of the
// one shown panel in a window of its own, else of the whole page.
function contentSize(document: Document, isChild: boolean): { width: number; height: number } {
  const width = document.documentElement.clientWidth;
  const panel = isChild ? shownPanel(document) : null;
  const height = panel ? panel.getBoundingClientRect().height : document.body.scrollHeight;
  return { width: Math.max(1, Math.ceil(width)), height: Math.max(1, Math.ceil(height)) };
}

function shownPanel(document: Document): Element | null {
  const panels = [...document.querySelectorAll(".panel")];
  return panels.find((panel) => panel.getClientRects().length > 0) ?? null;
}
