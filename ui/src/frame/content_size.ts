// The size at which the window shows all of its content: the present width, and the height of the
// one shown panel in a window of its own, else of the whole page.
export function contentSize(document: Document, isChild: boolean): { width: number; height: number } {
  const width = document.documentElement.clientWidth;
  const panel = isChild ? shownPanel(document) : null;
  const height = panel ? panel.getBoundingClientRect().height : document.body.scrollHeight;
  return { width: Math.max(1, Math.ceil(width)), height: Math.max(1, Math.ceil(height)) };
}

function shownPanel(document: Document): Element | null {
  const panels = [...document.querySelectorAll(".panel")];
  return panels.find((panel) => panel.getClientRects().length > 0) ?? null;
}
