// Sizes that the page asks for, in the view's unit: a window's content has them at every scale and
// text size, and asking again changes nothing.
import assert from 'node:assert/strict';
import test, { afterEach } from 'node:test';
import { clicker, detachByButton, physicalBox } from './lib/panels.mjs';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { until } from './lib/wine.mjs';
import { untilWindow, windowState } from './lib/windows.mjs';
import { WindowLog } from './lib/window_log.mjs';

const scale = Number(process.env.RAVELIN_TEST_SCALE ?? 100) / 100;
let ravelin;

afterEach(async () => {
    try {
        await ravelin?.closeOrKill();
    } finally {
        ravelin = undefined;
    }
});

/** The size of the page in pixels of the screen. */
const content = (page) => page.evaluate(() => [innerWidth * devicePixelRatio, innerHeight * devicePixelRatio]);

async function untilContent(page, width, height) {
    // The page counts whole pixels of its own.
    const near = (now, wanted) => Math.abs(now - wanted) <= scale * 1.3;
    let now;
    try {
        await until(async () => {
            now = await content(page);
            return near(now[0], width * scale) && near(now[1], height * scale);
        }, `content of ${width * scale} by ${height * scale} pixels`);
    } catch (error) {
        error.message += `\nit has ${now}`;
        throw error;
    }
}

async function assertStaysWhenAskedAgain(page, title) {
    const before = await windowState(title);
    for (let i = 0; i < 5; i++) await page.evaluate(() => window.resizeHostWindow());
    const after = await untilWindow(title);
    assert.deepEqual([after.width, after.height], [before.width, before.height]);
}

test('the main window gets content of the size that its page asks for', async () => {
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    await untilWindow(windowTitle);
    for (const [width, height] of [[300, 200], [340, 260], [300, 200]]) {
        await page.evaluate(([w, h]) => window.resizeWindow(w, h), [width, height]);
        await untilContent(page, width, height);
    }
});

test('a panel\'s window gets content of the size that its page asks for, in one step and never with a frame', async () => {
    const log = await WindowLog.open();
    try {
        ravelin = await Ravelin.open({ env: log.env });
        const child = await detachByButton(ravelin, clicker);
        // The page asks for its own size again as soon as it sees another one.
        for (const [width, height] of [[300, 200], [520, 330]]) {
            await child.evaluate(([w, h]) => window.resizeWindow(w, h), [width, height]);
            const fits = (state) => Math.abs(state.width - width * scale) <= 4 && Math.abs(state.height - height * scale) <= 4;
            await until(() => log.seen(clicker.window).some(fits), `the panel's window to have ${width} by ${height}`);
        }
        const seen = log.seen(clicker.window);
        assert.deepEqual(seen.filter(({ caption }) => caption), [], JSON.stringify(seen));
    } finally {
        await log.close();
    }
});

for (const textSize of [100, 130]) {
    test(`a panel fits its window at a text size of ${textSize} %, however often it asks`, async () => {
        ravelin = await Ravelin.open({ env: { RAVELIN_TEST_TEXT_SIZE: String(textSize) } });
        const child = await detachByButton(ravelin, clicker);
        const box = await physicalBox(child, child.locator(`#${clicker.id}`));
        const state = await windowState(clicker.window);
        assert.ok(Math.abs(state.height - box.height) <= 4 && Math.abs(state.width - box.width) <= 4, JSON.stringify([state, box]));
        const wide = (450 * scale * textSize) / 100;
        assert.ok(Math.abs(box.width - wide) <= 4 * scale, JSON.stringify(box));
        assert.equal(await child.evaluate(() => document.documentElement.scrollHeight > innerHeight + 1), false);
        await assertStaysWhenAskedAgain(child, clicker.window);
    });
}
