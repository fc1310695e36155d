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

// Called with the place of the page on the screen, which may be beyond what the protocol takes.
inline constexpr char placeScript[] = R"js(((x, y) => {
  for (const [name, value] of Object.entries({ screenX: x, screenY: y, screenLeft: x, screenTop: y })) {
    Object.defineProperty(window, name, { value, configurable: true, enumerable: true });
  }
}))js";

// A page has no focus before it is given some, whatever a test program that is attached makes the
// browser believe.
inline constexpr char noFocusScript[] =
    "Object.defineProperty(document, 'hasFocus', { value: () => false, configurable: true });";

// Called with true or false when the window gets or loses the focus. The browser cannot be made to
// forget the focus that a first click gave it, so the page is told in its stead. Where the browser
// is about to take notice by itself, it tells the page itself.
inline constexpr char focusScript[] = R"js(((focused) => {
  if (document.hasFocus() === focused) return;
  Object.defineProperty(document, 'hasFocus', { value: () => focused, configurable: true });
  if (!Document.prototype.hasFocus.call(document)) return;
  const element = document.activeElement === document.body ? null : document.activeElement;
  const tell = (target, type, bubbles) => target?.dispatchEvent(new FocusEvent(type, { bubbles }));
  if (focused) {
    tell(window, 'focus', false);
    tell(element, 'focus', false);
    tell(element, 'focusin', true);
  } else {
    tell(element, 'blur', false);
    tell(element, 'focusout', true);
    tell(window, 'blur', false);
  }
}))js";

// A script world of the runtime's own, which the page cannot see, and the binding in it.
inline constexpr char watcherWorld[] = "embeddedBrowser";
inline constexpr char watcherBinding[] = "__embeddedBrowserNote";

// Notes {"cursor": CSS value} when the pointer's shape changes, and {"menu": true} when the page
// leaves a context menu to the browser. Putting a new text into the document takes its listeners
// away, so it runs again after that.
inline constexpr char watcherScript[] = R"js((() => {
  globalThis.watcher?.abort();
  const { signal } = (globalThis.watcher = new AbortController());
  const note = (fact) => globalThis.__embeddedBrowserNote(JSON.stringify(fact));
  let shown = '';
  const overText = ({ clientX: x, clientY: y }) => {
    const node = document.caretPositionFromPoint(x, y)?.offsetNode;
    if (node?.nodeType !== Node.TEXT_NODE) return false;
    const range = document.createRange();
    range.selectNodeContents(node);
    return [...range.getClientRects()].some(
      (box) => x >= box.left && x < box.right && y >= box.top && y < box.bottom);
  };
  const shapeAt = (event) => {
    const element = event.composedPath().find((node) => node instanceof Element);
    if (!element) return 'default';
    const style = getComputedStyle(element);
    if (style.cursor !== 'auto') return style.cursor;
    return style.userSelect !== 'none' && overText(event) ? 'text' : 'default';
  };
  addEventListener('mousemove', (event) => {
    const shape = shapeAt(event);
    if (shape === shown) return;
    shown = shape;
    note({ cursor: shape });
  }, { signal, capture: true, passive: true });
  addEventListener('contextmenu', (event) => {
    if (event.defaultPrevented) return;
    event.preventDefault();
    note({ menu: true });
  }, { signal });
})();)js";

}  // namespace ravelin::browser
