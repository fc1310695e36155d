// The application settings that reach beyond the page: on top, at log-on, minimised.
import assert from 'node:assert/strict';
import path from 'node:path';
import test, { afterEach, beforeEach } from 'node:test';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { programFolder, runToEnd, windowsPath } from './lib/wine.mjs';
import { untilWindow, windowTool } from './lib/windows.mjs';

const place = { windowX: 150, windowY: 90, windowWidth: 600, windowHeight: 500 };
const rectangle = ({ left, top, width, height }) => [left, top, width, height];
const entry = ['HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Run', '/v', 'Ravelin'];
let ravelin;

beforeEach(async () => void (await runToEnd('reg', ['delete', ...entry, '/f'])));

afterEach(async () => {
    try {
        await ravelin?.closeOrKill();
    } finally {
        ravelin = undefined;
    }
});

async function open(settings) {
    ravelin = await Ravelin.open({ settings });
    return await ravelin.page();
}

const set = (page, key, on) => page.evaluate(([name, value]) => window.setAppSetting(name, value), [key, on ? '1' : '0']);

test('the window is on top as it was set, and follows a change at once without moving', async () => {
    const page = await open({ ...place, alwaysOnTop: 1 });
    const at = rectangle(await untilWindow(windowTitle, (state) => state.topmost, 'the window on top'));
    assert.deepEqual(at, [150, 90, 600, 500]);
    for (const on of [false, true, false]) {
        await set(page, 'alwaysOnTop', on);
        const state = await untilWindow(windowTitle, (now) => now.topmost === on, `the window ${on ? '' : 'no longer '}on top`);
        assert.deepEqual(rectangle(state), at);
    }
});

test('the window is not on top unless that is set', async () => {
    await open(place);
    assert.equal((await untilWindow(windowTitle)).topmost, false);
});

test('a minimised start shows no window, and one at its place when it is restored', async () => {
    await open({ ...place, startMinimized: 1, windowMaximized: 1, alwaysOnTop: 1 });
    const state = await untilWindow(windowTitle, (now) => now.minimized, 'the minimised window');
    assert.deepEqual([state.maximized, state.topmost], [false, true]);
    await windowTool('restore', windowTitle);
    assert.deepEqual(rectangle(await untilWindow(windowTitle, (now) => !now.minimized)), [150, 90, 600, 500]);
});

/** The type and text of the entry for log-on; null without one. */
async function logOnEntry() {
    const { code, output } = await runToEnd('reg', ['query', ...entry]);
    return code === 0 ? output.match(/Ravelin +(REG_\w+) +(.*?)\r?\n/).slice(1) : null;
}

const quotedProgram = `"${windowsPath(path.join(programFolder, 'Ravelin.exe'))}"`;

test('the entry for log-on is made at a start and follows a change at once', async () => {
    const page = await open({ launchOnStartup: 1 });
    assert.deepEqual(await logOnEntry(), ['REG_SZ', quotedProgram]);
    await set(page, 'launchOnStartup', false);
    assert.equal(await logOnEntry(), null);
    await set(page, 'launchOnStartup', true);
    assert.deepEqual(await logOnEntry(), ['REG_SZ', quotedProgram]);
});

test('a start with the setting off removes the entry, whoever made it; with the setting on it renews the path', async () => {
    const makeEntry = () => runToEnd('reg', ['add', ...entry, '/d', 'C:\\elsewhere\\Ravelin.exe', '/f']);
    await makeEntry();
    await open({ launchOnStartup: 0 });
    assert.equal(await logOnEntry(), null);
    assert.equal(await ravelin.close(), 0);
    await makeEntry();
    await open({ launchOnStartup: 1 });
    assert.deepEqual(await logOnEntry(), ['REG_SZ', quotedProgram]);
});
