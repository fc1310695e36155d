// Scripts that this runtime puts into every page.
#pragma once

namespace ravelin::browser {

// The protocol binding that carries the page's messages; the bridge hides it from the page.
inline constexpr char messageBinding[] = "__embeddedBrowserPost";

// window.chrome.webview as pages know it, in the main frame only.
inline constexpr char bridgeScript[] = R"js((() => {
  const post = globalThis.__embeddedBrowserPost;
  delete globalThis.__embeddedBrowserPost;
  if (window !== window.top || !post) return;
  const webview = Object.assign(new EventTarget(), {
    postMessage(message) { post(JSON.stringify(message) ?? 'null'); },
  });
  window.chrome = Object.assign(window.chrome ?? {}, { webview });
})();)js";

// A headless browser takes its own hidden window for the place of every mouse event. A click made
// with the keyboard keeps the zeros that it has everywhere.
inline constexpr char screenPlaceScript[] = R"js((() => {
  for (const axis of ['X', 'Y']) {
    Object.defineProperty(MouseEvent.prototype, 'screen' + axis, {
      configurable: true,
      enumerable: true,
      get() {
        if (this.type === 'click' && this.detail === 0) return 0;
        return this['client' + axis] + window['screen' + axis];
      },
    });
  }
})();)js";

}  // namespace ravelin::browser
