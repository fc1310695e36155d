// What the page knows of its window: only what the host tells the view.
import assert from 'node:assert/strict';
import { until, xdotool } from '../../e2e/lib/wine.mjs';
import { untilWindow, windowTool } from '../../e2e/lib/windows.mjs';
import { attach, BrowserHost, pageText } from '../lib/browser_host.mjs';
import { atEnd, test } from '../lib/harness.mjs';

/** The host with its page, which a test asks. */
async function openAsked(options) {
    const host = await BrowserHost.open(options);
    const { browser, page } = await attach(host.published()[0]);
    atEnd(() => browser.close());
    return { host, page };
}

const placeIn = (page) => page.evaluate(() => [screenX, screenY, screenLeft, screenTop]);
const realPlace = async (page) => await page.evaluate(async () => { const { x, y } = await where(); return [x, y, x, y]; });

test('a window that was moved is where it was for its page, until the view is told', async () => {
    const { host, page } = await openAsked();
    const before = await placeIn(page);
    assert.deepEqual(before, await realPlace(page));
    await windowTool('place', host.title, 333, 222);
    const now = await realPlace(page);
    assert.notDeepEqual(now, before);
    // A click is no news of the place, and its own place follows from the page's.
    await page.evaluate(() => addEventListener('click', (e) => report('placed', e.screenX - e.clientX, e.screenY - e.clientY)));
    host.place = await page.evaluate(() => where());
    await host.click(80, 40);
    assert.deepEqual(await host.reported('placed'), ['placed', before[0], before[1]]);
    assert.deepEqual(await placeIn(page), before);
    await page.evaluate(() => tellMove());
    assert.deepEqual(await placeIn(page), now);
    await host.click(80, 40);
    assert.deepEqual(await host.reported('placed'), ['placed', now[0], now[1]]);
    await host.close();
});

test('a new size tells the place as well, also one beyond the screen', async () => {
    const { host, page } = await openAsked();
    await windowTool('move', host.title, -70, 50, 500, 400);
    await host.reported('size');
    const now = await realPlace(page);
    assert.ok(now[0] < 0, `${now}`);
    assert.deepEqual(await placeIn(page), now);
    // And a page that is loaded again knows it from then on.
    host.forget();
    await host.click(300, 250);
    await xdotool('key', 'F5');
    await host.reported('ready');
    assert.deepEqual(await placeIn(page), now);
    await host.close();
});

test('keys reach the page only when the view was given the keyboard', async () => {
    const { host, page } = await openAsked();
    const focused = () => page.evaluate(() => document.hasFocus());
    await untilWindow(host.title, (state) => state.foreground);
    await page.evaluate(() => focusWindow());
    await until(async () => !(await focused()), 'the page to be without the keyboard');
    host.forget();
    await xdotool('key', 'k');
    await page.evaluate(() => focusView());
    await until(focused, 'the page to have the keyboard');
    await xdotool('key', 'l');
    assert.equal((await host.reported('keydown'))[1], 'l');
    await page.evaluate(() => focusWindow());
    await until(async () => !(await focused()), 'the page to be without the keyboard again');
    await host.click(300, 250);
    await until(focused, 'a click to give it the keyboard');
    await host.close();
});

const watch = () => {
    window.seen = [];
    document.addEventListener('visibilitychange', () => window.seen.push([document.visibilityState, document.hidden]));
};
/** How often a timer of 10 ms comes within the time. */
const ticks = (page, milliseconds) => page.evaluate((limit) => new Promise((done) => {
    const end = performance.now() + limit;
    let count = 0;
    const tick = () => (++count, performance.now() > end ? done(count) : setTimeout(tick, 10));
    tick();
}), milliseconds);

test('a page is hidden by its host alone, and told so', async () => {
    const { host, page } = await openAsked();
    await page.evaluate(watch);
    await windowTool('minimize', host.title);
    await untilWindow(host.title, (state) => state.minimized);
    assert.ok((await ticks(page, 1500)) > 15, 'a page in a minimised window is not slowed down by itself');
    await windowTool('restore', host.title);
    await untilWindow(host.title, (state) => !state.minimized);
    assert.deepEqual(await page.evaluate(() => [document.visibilityState, window.seen]), ['visible', []]);
    await page.evaluate(() => setVisible(false));
    await until(() => page.evaluate(() => document.hidden), 'the page to be hidden');
    await page.evaluate(() => setVisible(true));
    await until(() => page.evaluate(() => !document.hidden), 'the page to be shown');
    assert.deepEqual(await page.evaluate(() => window.seen), [['hidden', true], ['visible', false]]);
    // It is on the screen again and takes input.
    await until(async () => (await host.colour(60, 140)) === '#ff0001', 'the red box');
    await host.click(80, 40);
    await host.reported('click', (name) => name === 'press');
    await host.close();
});

test('a hidden page that had the keyboard has slow timers like any other', async () => {
    const { host, page } = await openAsked();
    await host.click(80, 40);
    await until(() => page.evaluate(() => document.hasFocus()), 'the page to have the keyboard');
    await page.evaluate(() => setVisible(false));
    await until(() => page.evaluate(() => document.hidden), 'the page to be hidden');
    const slow = await ticks(page, 3000);
    assert.ok(slow <= 6, `${slow} in three seconds`);
    await page.evaluate(() => setVisible(true));
    await until(() => page.evaluate(() => !document.hidden), 'the page to be shown');
    assert.ok((await ticks(page, 3000)) > 30);
    await host.close();
});
