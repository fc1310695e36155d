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

}  // namespace ravelin::browser
