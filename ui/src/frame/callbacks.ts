import { contentSize } from "./content_size";
import type { App } from "../state/app.svelte";

// The functions that the program calls by name.
declare global {
  interface Window {
    applyTheme?: (key: string) => void;
    currentThemeKey?: string;
    resizeHostWindow?: () => void;
  }
}

export function installCallbacks(host: Window, app: App): void {
  host.applyTheme = (key) => app.theme.apply(String(key));
  host.resizeHostWindow = () => {
    const { width, height } = contentSize(host.document, app.isChild);
    void app.bridge.call("resizeWindow", width, height);
  };
}
