import { flag } from "../bridge/methods";
import { mergeOrder, moveBy, panelTitles, type PanelId } from "../text/panel_order";
import type { Bridge } from "../bridge/bridge";
import type { Preferences } from "./preferences.svelte";

export interface ScreenPoint {
  x: number;
  y: number;
}

// Order, minimised panels and panels that live in a window of their own.
export class PanelLayout {
  order = $state.raw<PanelId[]>(mergeOrder([]));
  minimized = $state.raw<readonly string[]>([]);
  detached = $state.raw<readonly string[]>([]);

  constructor(private readonly bridge: Bridge) {}

  adopt(preferences: Preferences): void {
    this.order = mergeOrder(preferences.panelOrder);
    this.minimized = preferences.minimizedPanels;
  }

  setMinimized(id: PanelId, on: boolean): void {
    const others = this.minimized.filter((other) => other !== id);
    this.minimized = on ? [...others, id] : others;
    void this.bridge.call("setAppSetting", `min:${id}`, flag(on));
  }

  setOrder(order: readonly string[]): void {
    const next = mergeOrder(order);
    if (next.join() === this.order.join()) return;
    this.order = next;
    void this.bridge.call("setPanelOrder", next.join(","));
  }

  // Moves a panel among those that are shown; true when it moved.
  move(id: PanelId, step: -1 | 1): boolean {
    const next = moveBy(this.order, id, step, this.detached);
    if (!next) return false;
    this.setOrder(next);
    return true;
  }

  // Gives a panel a window of its own at a point of the screen, in pixels. Answers the program's
  // message when it cannot be done, else the empty text.
  async detach(id: PanelId, at: ScreenPoint, theme: string): Promise<string> {
    const title = panelTitles[id];
    const answer = await this.bridge.call("detachPanel", title, id, at.x, at.y, theme);
    if (!answer.ok) return answer.message;
    if (typeof answer.value === "string" && answer.value !== "") return answer.value;
    this.detached = [...this.detached, id];
    return "";
  }

  restore(ids: readonly string[]): void {
    if (ids.some((id) => this.detached.includes(id))) {
      this.detached = this.detached.filter((id) => !ids.includes(id));
    }
  }
}
