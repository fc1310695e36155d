import type Sortable from "sortablejs";
import type { Attachment } from "svelte/attachments";
import type { ScreenPoint } from "../state/panel_layout.svelte";
import { motionAllowed } from "./motion";
import { isOutside, screenPoint } from "./screen_point";

interface Dragged {
  order: (ids: string[]) => void;
  // A panel was let go outside of the window; false when it cannot have one of its own.
  tearOff: (id: string, at: ScreenPoint) => boolean;
  // The panel that would be torn off if it were let go now; empty when there is none.
  leaving: (id: string) => void;
}

// Dragging panels by their headers. The library comes as a script of its own and may be missing;
// panels are then moved with the keys only.
export function panelSorting(dragged: Dragged): Attachment<HTMLElement> {
  return (dashboard) => {
    const library = (window as { Sortable?: typeof Sortable }).Sortable;
    if (!library) return undefined;
    let next: Node | null = null;
    let held = "";
    const follow = (event: PointerEvent) => dragged.leaving(isOutside(event) ? held : "");
    const hold = (id: string) => {
      held = id;
      if (id !== "") {
        window.addEventListener("pointermove", follow, true);
        return;
      }
      window.removeEventListener("pointermove", follow, true);
      dragged.leaving("");
    };
    const sorting = library.create(dashboard, {
      handle: ".panel-header",
      draggable: ".panel",
      filter: ".panel-btn:not(.grip)",
      preventOnFilter: false,
      dataIdAttr: "data-id",
      // Pointer events instead of the browser's own drag, which a hosted view may not deliver.
      forceFallback: true,
      fallbackTolerance: 4,
      animation: motionAllowed() ? 160 : 0,
      ghostClass: "drop-place",
      onChoose: (event) => void (next = event.item.nextSibling),
      onStart: (event) => hold(event.item.id),
      onEnd: (event) => {
        hold("");
        setTimeout(endClick);
        const order = sorting.toArray();
        // The list is drawn from its data: the element goes back to where it was, and the new
        // order moves it.
        dashboard.insertBefore(event.item, next);
        const end = lastPoint(event);
        if (end && isOutside(end) && dragged.tearOff(event.item.id, screenPoint(end))) return;
        dragged.order(order);
      },
    });
    return () => {
      hold("");
      sorting.destroy();
    };
  };
}

// After a drag the library swallows the click that it ends in. A drag may end in none, outside of the
// window for one; the click that would be swallowed then is this one instead of the user's next.
function endClick(): void {
  document.dispatchEvent(new MouseEvent("click", { cancelable: true }));
}

// The event that ended the drag, which the library passes on without naming its type.
function lastPoint(event: Sortable.SortableEvent): PointerEvent | null {
  const { originalEvent } = event as Sortable.SortableEvent & { originalEvent?: Event };
  return originalEvent instanceof PointerEvent ? originalEvent : null;
}
