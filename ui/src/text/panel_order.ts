export const panelIds = [
  "panel-spammer",
  "panel-keyspam",
  "panel-tracker",
  "panel-profile",
  "panel-ui",
] as const;

export type PanelId = (typeof panelIds)[number];

export const panelTitles: Record<PanelId, string> = {
  "panel-spammer": "Auto clicker",
  "panel-keyspam": "Key spammer",
  "panel-tracker": "Macro",
  "panel-profile": "Profiles",
  "panel-ui": "Settings",
};

// A window of its own can do nothing with the panels that need more than the tools' methods.
const aloneIds: readonly PanelId[] = ["panel-spammer", "panel-keyspam", "panel-tracker"];

export function worksAlone(id: PanelId): boolean {
  return aloneIds.includes(id);
}

export function isPanelId(text: string): text is PanelId {
  return (panelIds as readonly string[]).includes(text);
}

// The saved order may name only some of the panels, or ones that are no panels: those named come
// first, the others follow in their usual order.
export function mergeOrder(saved: readonly string[]): PanelId[] {
  const named = [...new Set(saved)].filter(isPanelId);
  return [...named, ...panelIds.filter((id) => !named.includes(id))];
}

// The order with one panel moved past its next shown neighbour; null at the end of the row.
export function moveBy(
  order: readonly PanelId[],
  id: PanelId,
  step: -1 | 1,
  hidden: readonly string[],
): PanelId[] | null {
  const from = order.indexOf(id);
  let to = from + step;
  while (order[to] && hidden.includes(order[to]!)) to += step;
  if (from < 0 || !order[to]) return null;
  const rest = order.filter((other) => other !== id);
  rest.splice(to, 0, id);
  return rest;
}
