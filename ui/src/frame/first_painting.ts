import type { App } from "../state/app.svelte";

// A window that nobody sees may be given no frames.
const longestFrames = 300;

// Tells the program that the page stands there as the user shall first see it: with the settings,
// in the theme and, in a window of one panel, in its size. Until then nobody sees the window.
export async function tellPainted(host: Window, app: App, started: Promise<void>): Promise<void> {
  await started;
  await app.fitted;
  await Promise.race([twoFrames(host), pause(host, longestFrames)]);
  await app.bridge.call("pagePainted");
}

// What is on the page at the first frame is on the screen before the second.
function twoFrames(host: Window): Promise<void> {
  return new Promise((done) => {
    host.requestAnimationFrame(() => host.requestAnimationFrame(() => done()));
  });
}

function pause(host: Window, milliseconds: number): Promise<void> {
  return new Promise((done) => host.setTimeout(done, milliseconds));
}
