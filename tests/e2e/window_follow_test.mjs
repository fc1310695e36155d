// The page knows of its window what the engine alone would not tell it: keyboard focus, place, and
// whether it can be seen.
import assert from 'node:assert/strict';
import test, { afterEach } from 'node:test';
import { clicker, detachByButton, titlePlace, untilGone } from './lib/panels.mjs';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { until, xdotool } from './lib/wine.mjs';
import { untilWindow, windowTool } from './lib/windows.mjs';

let ravelin;

afterEach(async () => {
    try {
        await ravelin?.closeOrKill();
    } finally {
        ravelin = undefined;
    }
});

const holds = (page, what, question) => until(() => page.evaluate(question), what);
const untilVisibility = (page, wanted) =>
    until(async () => (await page.evaluate(() => document.visibilityState)) === wanted, `the page to be ${wanted}`);

test('Tab works right after the start, without a click', async () => {
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    await untilWindow(windowTitle, ({ foreground }) => foreground);
    await holds(page, 'the page to have the focus', () => document.hasFocus());
    await xdotool('key', 'Tab');
    await holds(page, 'a control to be focused', () => document.activeElement !== document.body);
});

test('the keyboard comes back to the page with the window', async () => {
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    const panel = await detachByButton(ravelin, clicker);
    const inPanel = await titlePlace(panel, clicker, clicker.window);
    await xdotool('mousemove', inPanel.x, inPanel.y, 'click', 1);
    await until(async () => !(await page.evaluate(() => document.hasFocus())), 'the page to lose the focus');
    // On the caption, which is the window's and not the page's.
    const { left, top } = await untilWindow(windowTitle);
    await xdotool('mousemove', left + 120, top + 12, 'click', 1);
    await holds(page, 'the page to have the focus again', () => document.hasFocus());
});

test('the page knows where its window has been moved to', async () => {
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    for (const [x, y] of [[40, 50], [300, 210]]) {
        const { left, top } = await untilWindow(windowTitle);
        const before = await page.evaluate(() => [screenX, screenY]);
        await windowTool('place', windowTitle, x, y);
        const moved = await untilWindow(windowTitle, (now) => now.left === x && now.top === y);
        const expected = [before[0] + moved.left - left, before[1] + moved.top - top];
        await until(async () => String(await page.evaluate(() => [screenX, screenY])) === String(expected), `the page to be at ${expected}`);
    }
});

test('the page of a minimised window counts as hidden, unless a panel is out', async () => {
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    await windowTool('minimize', windowTitle);
    await untilVisibility(page, 'hidden');
    await windowTool('restore', windowTitle);
    await untilVisibility(page, 'visible');

    const panel = await detachByButton(ravelin, clicker);
    await page.evaluate(() => {
        window.changes = [];
        document.addEventListener('visibilitychange', () => window.changes.push(document.visibilityState));
    });
    await windowTool('minimize', windowTitle);
    await untilWindow(windowTitle, ({ minimized }) => minimized);
    // The page asks at its usual pace, and gets its panel back; only then is it hidden.
    await panel.evaluate(() => window.closeThisWindow()).catch(() => {});
    await untilGone(clicker.window);
    await untilVisibility(page, 'hidden');
    assert.deepEqual(await page.evaluate(() => window.changes), ['hidden']);
    await windowTool('restore', windowTitle);
    await untilVisibility(page, 'visible');
    await page.locator(`#${clicker.id}`).waitFor({ state: 'visible' });
});
