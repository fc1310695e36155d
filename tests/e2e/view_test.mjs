// The page is a program's and no browser's: what a browser offers besides does nothing, in the main
// window and in a panel's.
import assert from 'node:assert/strict';
import test, { after, before } from 'node:test';
import { clicker, detachByButton, titlePlace } from './lib/panels.mjs';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { until, xdotool } from './lib/wine.mjs';
import { untilWindow } from './lib/windows.mjs';

let ravelin;

before(async () => {
    ravelin = await Ravelin.open();
    await untilWindow(windowTitle);
});

after(async () => await ravelin?.closeOrKill());

/** Notes what reaches the page from now on, for as long as it is not loaded again. */
const listen = (page) => page.evaluate(() => {
    window.seen = [];
    for (const kind of ['keydown', 'contextmenu', 'wheel'])
        addEventListener(kind, (event) => window.seen.push(event.key ?? kind), true);
});

/** Uses each of the browser's own means at that place; the page gets them all and stays as it is. */
async function assertNoBrowser(page, { x, y }) {
    const seen = (name) => until(() => page.evaluate((what) => window.seen?.includes(what), name), `${name} to reach the same page`);
    await listen(page);
    await xdotool('mousemove', x, y, 'click', 3);
    await seen('contextmenu');
    // In an open menu these would choose to load the page again.
    for (const [key, name] of [['Down', 'ArrowDown'], ['Return', 'Enter']]) {
        await xdotool('key', key);
        await seen(name);
    }
    for (const [key, name] of [['F5', 'F5'], ['ctrl+r', 'r'], ['ctrl+plus', '+'], ['ctrl+minus', '-'], ['F12', 'F12'], ['ctrl+p', 'p']]) {
        await xdotool('key', key);
        await seen(name);
    }
    await xdotool('keydown', 'ctrl');
    try {
        await xdotool('click', 4);
        await seen('wheel');
    } finally {
        await xdotool('keyup', 'ctrl');
    }
    assert.equal(await page.evaluate(() => devicePixelRatio), 1);
}

test('menu, keys and zoom of a browser do nothing in the main window', async () => {
    const page = await ravelin.page();
    await assertNoBrowser(page, await titlePlace(page, clicker, windowTitle));
});

test('menu, keys and zoom of a browser do nothing in a panel\'s window', async () => {
    const child = await detachByButton(ravelin, clicker);
    await untilWindow(clicker.window);
    await assertNoBrowser(child, await titlePlace(child, clicker, clicker.window));
});
