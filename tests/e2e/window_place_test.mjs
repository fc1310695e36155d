// Where the main window opens: at its saved place, cut to the screen, never out of sight.
import assert from 'node:assert/strict';
import test, { afterEach } from 'node:test';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { untilWindow, windowTool } from './lib/windows.mjs';

let ravelin;

afterEach(async () => {
    try {
        await ravelin?.closeOrKill();
    } finally {
        ravelin = undefined;
    }
});

async function openWithSettings(settings) {
    ravelin = await Ravelin.open({ settings });
    return await untilWindow(windowTitle);
}

test('a saved size beyond the screen is cut to the screen', async () => {
    const { left, top, width, height } =
        await openWithSettings({ windowX: 100, windowY: 60, windowWidth: 3000, windowHeight: 2500, windowMaximized: 0 });
    assert.deepEqual([left, top, width, height], [100, 60, 1280, 1000]);
});

test('a place on a monitor that is gone is left alone', async () => {
    const state = await openWithSettings({ windowX: 5000, windowY: 4000, windowWidth: 500, windowHeight: 500, windowMaximized: 0 });
    assert.ok(state.left >= 0 && state.left < 1280 && state.top >= 0 && state.top < 1000, JSON.stringify(state));
});

test('a maximised window opens maximised and returns to its saved place', async () => {
    const state = await openWithSettings({ windowX: 70, windowY: 80, windowWidth: 640, windowHeight: 520, windowMaximized: 1 });
    assert.equal(state.maximized, true);
    await windowTool('restore', windowTitle);
    const { left, top, width, height } = await untilWindow(windowTitle, (now) => !now.maximized);
    assert.deepEqual([left, top, width, height], [70, 80, 640, 520]);
});
