// A window is first seen as it shall be: in its place, shape and size, with its page, never before.
import assert from 'node:assert/strict';
import { cpSync, rmSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test, { after, afterEach, before } from 'node:test';
import { clicker, detachByButton, panelPage } from './lib/panels.mjs';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { untilWindow, windowState, windowTool } from './lib/windows.mjs';
import { WindowLog } from './lib/window_log.mjs';
import { Witness } from './lib/witness.mjs';
import { clearDataFolder, programFolder, scratch, start, until, windowsPath, within } from './lib/wine.mjs';

let log;
let ravelin;

before(async () => {
    log = await WindowLog.open();
});

afterEach(async () => {
    try {
        await ravelin?.closeOrKill();
    } finally {
        ravelin = undefined;
    }
});

after(async () => await log?.close());

const open = async (settings) => (ravelin = await Ravelin.open({ settings, env: log.env }));
const lifted = (title) => until(() => log.of(title).some(({ text }) => text === 'cloak 0'), `"${title}" to be seen`);
const place = ({ left, top, width, height }) => [left, top, width, height];

test('the main window is seen once it stands in its place with its page painted', async () => {
    await open({ windowX: 210, windowY: 130, windowWidth: 640, windowHeight: 520, windowMaximized: 0 });
    await lifted(windowTitle);
    log.inOrder(windowTitle, 'create', 'cloak 1', 'show 1', 'place 210 130 850 650', 'call pagePainted', 'cloak 0');
    const seen = log.seen(windowTitle);
    assert.deepEqual(place(seen[0]), [210, 130, 640, 520]);
    assert.equal(seen.length, 1, JSON.stringify(seen));
    assert.equal((await untilWindow(windowTitle, ({ foreground }) => foreground)).foreground, true);
});

test('a window that was maximised is first seen maximised', async () => {
    await open({ windowX: 70, windowY: 80, windowWidth: 640, windowHeight: 520, windowMaximized: 1 });
    await lifted(windowTitle);
    log.inOrder(windowTitle, 'cloak 1', 'show 1', /^style/, 'call pagePainted', 'cloak 0');
    const [first, ...rest] = log.seen(windowTitle);
    assert.ok(first.width >= 1280 && first.height >= 1000, JSON.stringify(first));
    assert.deepEqual(rest, []);
});

test('a start that is minimised leaves the foreground where it is, and shows nothing until restored', async () => {
    const witness = await Witness.open();
    try {
        await witness.focus();
        await open({ startMinimized: 1, windowX: 90, windowY: 100, windowWidth: 600, windowHeight: 500, windowMaximized: 0 });
        await untilWindow(windowTitle, ({ minimized }) => minimized);
        await until(() => log.of(windowTitle).some(({ text }) => text === 'call pagePainted'), 'the page to be painted');
        assert.deepEqual(log.seen(windowTitle), []);
        assert.deepEqual(witness.fresh('focus'), []);
        assert.equal((await windowState(witness.title)).foreground, true);
        await windowTool('restore', windowTitle);
        await untilWindow(windowTitle, ({ minimized }) => !minimized);
        // On its way there it may still stand where minimised windows do.
        assert.deepEqual(place(log.seen(windowTitle).at(-1)), [90, 100, 600, 500]);
    } finally {
        await witness.close();
    }
});

test('a panel\'s window is first seen without a frame, in its place and size, with its panel alone', async () => {
    await open();
    await detachByButton(ravelin, clicker);
    await lifted(clicker.window);
    log.inOrder(clicker.window, 'cloak 1', 'show 1', /^style/, /^place/, 'call resizeWindow', 'call pagePainted', 'cloak 0');
    const page = await panelPage(ravelin, clicker);
    const now = await windowState(clicker.window);
    const seen = log.seen(clicker.window);
    for (const state of seen) {
        assert.equal(state.caption, false, JSON.stringify(seen));
        assert.deepEqual(place(state), place(now), JSON.stringify(seen));
    }
    assert.equal(await page.locator('.panel:visible').count(), 1);
});

test('a page that never tells that it is painted is seen after a while', async () => {
    const folder = path.join(scratch, 'opening');
    rmSync(folder, { recursive: true, force: true });
    cpSync(programFolder, folder, { recursive: true });
    writeFileSync(path.join(folder, 'ui/index.html'), '<!doctype html><body>Nothing but text</body>');
    clearDataFolder();
    const run = start(windowsPath(path.join(folder, 'Ravelin.exe')), [], { env: log.env });
    try {
        await untilWindow(windowTitle, ({ cloaked }) => cloaked);
        await untilWindow(windowTitle, ({ cloaked }) => !cloaked);
        assert.ok(!log.of(windowTitle).some(({ text }) => text === 'call pagePainted'));
        assert.equal(log.seen(windowTitle).length, 1);
    } finally {
        await windowTool('close', windowTitle);
        await within(30_000, run.exited, 'the program to end');
    }
});
