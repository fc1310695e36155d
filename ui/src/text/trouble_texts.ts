import type { TroubleKind } from "../state/trouble.svelte";

// A sentence of what happened, and one of what it means.
export const troubleTexts: Record<TroubleKind, { what: string; then: string }> = {
  hooksMissing: {
    what: "Windows does not let Ravelin watch keys and clicks.",
    then: "Hotkeys do nothing. Ravelin tries again every few seconds.",
  },
  refusedSends: {
    what: "Windows blocks input to this program.",
    then: "The program in front gets neither clicks nor keys from Ravelin.",
  },
  failures: {
    what: "Something went wrong in Ravelin.",
    then: "It carries on. If it behaves oddly, close it and start it again.",
  },
  hooksPutBack: {
    what: "Windows had stopped passing keys and clicks on to Ravelin.",
    then: "Hotkeys work again.",
  },
};
