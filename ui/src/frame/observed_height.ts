import type { Attachment } from "svelte/attachments";

// The outer height that a ResizeObserver reports. To ask the element would make the browser lay the
// page out again in the midst of a change.
export function outerHeight(entry: ResizeObserverEntry): number {
  return entry.borderBoxSize[0]?.blockSize ?? 0;
}

// Tells an element's outer height before it is first painted, and whenever it changes.
export function observedHeight(told: (height: number) => void): Attachment<HTMLElement> {
  return (element) => {
    const sizes = new ResizeObserver((entries) => {
      for (const entry of entries) told(outerHeight(entry));
    });
    sizes.observe(element);
    return () => sizes.disconnect();
  };
}
