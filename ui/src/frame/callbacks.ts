import { requestSize } from "./content_size";
import type { App } from "../state/app.svelte";

// The functions that the program calls by name.
declare global {
  interface Window {
    applyTheme?: (key: string) => void;
    currentThemeKey?: string;
    resizeHostWindow?: () => void;
    onUpdateAvailable?: (offered: string, own: string) => void;
    onUpdateProgress?: (received: number, total: number) => void;
    onUpdateInstalling?: () => void;
  }
}

export function installCallbacks(host: Window, app: App): void {
  host.applyTheme = (key) => app.theme.apply(String(key));
  host.resizeHostWindow = () => (app.fitted = requestSize(host.document, app));
  host.onUpdateAvailable = (offered, own) => {
    app.update.offer(String(offered), String(own));
    app.say(`Version ${offered} is available`);
  };
  host.onUpdateProgress = (received, total) => {
    app.update.progress(Number(received) || 0, Number(total) || 0);
  };
  host.onUpdateInstalling = () => {
    app.update.installing();
    app.say("Installing the update");
  };
}
