import type { Attachment } from "svelte/attachments";
import type { App } from "../state/app.svelte";

// What a panel's window of 450 pixels has inside its border where Windows shows everything at 100 %.
// With a larger scale or text its page would be narrower than anybody can use.
const narrowestPanel = 448;

let requested = "";

// Asks the program to make the window as large as its content. The program counts in units that are
// scaled with the window; Windows' text size scales the page on top of that.
export async function requestSize(document: Document, app: App): Promise<void> {
  await app.surroundings.ready;
  const { width, height } = contentSize(document, app.isChild);
  requested = `${width},${height}`;
  const text = window.devicePixelRatio / app.surroundings.now.scale;
  const scaled = (size: number) => Math.ceil(size * text - 0.001);
  await app.bridge.call("resizeWindow", scaled(width), scaled(height));
}

// Keeps the window of one panel as high as the panel while that grows and shrinks.
export function keepFitting(app: App): Attachment<HTMLElement> {
  return (dashboard) => {
    const sizes = new ResizeObserver(() => {
      const { width, height } = contentSize(document, app.isChild);
      if (requested !== "" && requested !== `${width},${height}`) void requestSize(document, app);
    });
    sizes.observe(dashboard);
    return () => sizes.disconnect();
  };
}

// The size at which the window shows all of its content: the present width, which a panel's window
// may have to widen, and the height of the one shown panel in a window of its own, else of the whole
// page.
function contentSize(document: Document, isChild: boolean): { width: number; height: number } {
  // With the scroll bar, which the window has as well.
  const width = isChild ? Math.max(window.innerWidth, narrowestPanel) : window.innerWidth;
  const panel = isChild ? shownPanel(document) : null;
  const height = panel ? panel.getBoundingClientRect().height : document.body.scrollHeight;
  return { width: Math.max(1, Math.ceil(width)), height: Math.max(1, Math.ceil(height)) };
}

function shownPanel(document: Document): Element | null {
  const panels = [...document.querySelectorAll(".panel")];
  return panels.find((panel) => panel.getClientRects().length > 0) ?? null;
}
