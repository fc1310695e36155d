// Starting and ending: the second start, the missing page, the missing library and runtime.
import assert from 'node:assert/strict';
import { cpSync, existsSync, rmSync } from 'node:fs';
import path from 'node:path';
import test, { afterEach } from 'node:test';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { runToEnd, programFolder, scratch, screenshot, start, toolFolder, until, windowsPath, within } from './lib/wine.mjs';
import { untilWindow, windowState, windowTool } from './lib/windows.mjs';

const elsewhere = path.join(scratch, 'program');
let ravelin;

afterEach(async () => {
    if (ravelin) await ravelin.close();
    ravelin = undefined;
});

/** A copy of the program without one of its files. */
function programWithout(name) {
    rmSync(elsewhere, { recursive: true, force: true });
    cpSync(programFolder, elsewhere, { recursive: true });
    rmSync(path.join(elsewhere, name), { recursive: true, force: true });
    return windowsPath(path.join(elsewhere, 'Ravelin.exe'));
}

test('the window has its title and the default size', async () => {
    ravelin = await Ravelin.open();
    await untilWindow(windowTitle);
    const page = await ravelin.page();
    assert.deepEqual(await page.evaluate(() => [innerWidth, innerHeight]), [420, 560]);
});

test('a second start restores and activates the minimised first one and exits with 0', async () => {
    ravelin = await Ravelin.open();
    await untilWindow(windowTitle);
    await windowTool('minimize', windowTitle);
    await untilWindow(windowTitle, (state) => state.minimized, 'the window to be minimised');
    const second = await runToEnd('Ravelin.exe');
    assert.equal(second.code, 0);
    await untilWindow(windowTitle, (state) => !state.minimized && state.foreground, 'the first window in front');
});

/** Runs `deed` beside a first instance that nobody may open, with a window of this title or none. */
async function besideElevatedOne(title, deed) {
    const first = start(windowsPath(path.join(toolFolder, 'instance_tool.exe')), title ? [title] : []);
    try {
        await until(() => first.output.includes('ready'), 'the first instance');
        await deed();
        assert.ok(!first.ended);
    } finally {
        first.process.kill('SIGKILL');
    }
}

const titles = async () => (await windowTool('list')).split('\n').filter((title) => title.startsWith('Ravelin'));

test('a first one that runs elevated is brought to the front as well, without a word', async () => {
    await besideElevatedOne(windowTitle, async () => {
        await untilWindow(windowTitle, (state) => state.minimized, 'the window to be minimised');
        assert.equal((await runToEnd('Ravelin.exe')).code, 0);
        await untilWindow(windowTitle, (state) => !state.minimized && state.foreground, 'the first window in front');
        assert.deepEqual(await titles(), [windowTitle]);
    });
});

test('beside a first one without a window a second start ends without a word', async () => {
    await besideElevatedOne(null, async () => {
        assert.equal((await runToEnd('Ravelin.exe')).code, 0);
        assert.deepEqual(await titles(), []);
    });
});

test('closing the window ends the program with exit code 0', async () => {
    const once = await Ravelin.open();
    assert.equal(await once.close(), 0);
});

test('without its page file the program says so and shows an empty window', async () => {
    const run = start(programWithout('ui/index.html'), [], { cwd: elsewhere });
    await untilWindow('UI Error');
    const text = await windowTool('text', 'UI Error');
    assert.match(text, /Failed to read:\n?.*\\ui\\index\.html/s);
    await screenshot('page-missing');
    await windowTool('close', 'UI Error');
    await untilWindow(windowTitle);
    await windowTool('close', windowTitle);
    assert.equal(await within(30_000, run.exited, 'the program to end'), 0);
});

test('without the view library a message says what is missing, and the exit code is 1', async () => {
    const run = start(programWithout('libwebview.dll'), [], { cwd: elsewhere });
    await untilWindow('Ravelin');
    assert.match(await windowTool('text', 'Ravelin'), /libwebview\.dll/);
    await screenshot('library-missing');
    await windowTool('close', 'Ravelin');
    assert.equal(await within(30_000, run.exited, 'the program to end'), 1);
});

test('without the browser runtime a message says where to get it, and the exit code is 1', async () => {
    const key = 'HKLM\\SOFTWARE\\Microsoft\\EdgeUpdate\\ClientState\\{F3017226-FE2A-4295-8BDF-00C3A9A7E4C5}';
    const before = await runToEnd('reg', ['query', key, '/v', 'EBWebView', '/reg:32']);
    const folder = before.output.match(/REG_SZ\s+(.+)/)[1].trim();
    await runToEnd('reg', ['delete', key, '/v', 'EBWebView', '/f', '/reg:32']);
    try {
        const run = start('Ravelin.exe');
        await untilWindow('Ravelin');
        assert.match(await windowTool('text', 'Ravelin'), /WebView2 runtime.*https:/s);
        await screenshot('runtime-missing');
        await windowTool('close', 'Ravelin');
        assert.equal(await within(30_000, run.exited, 'the program to end'), 1);
    } finally {
        await runToEnd('reg', ['add', key, '/v', 'EBWebView', '/d', folder, '/f', '/reg:32']);
    }
    assert.equal(await windowState('Ravelin ('), null);
});

test('a console mode works without view library and page', async () => {
    const program = programWithout('libwebview.dll');
    rmSync(path.join(elsewhere, 'ui'), { recursive: true });
    const { code, output } = await runToEnd(program, ['--validate-macro=C:\\none'], { cwd: elsewhere });
    assert.equal(code, 1);
    assert.equal(output.trim(), "REJECT Couldn't open that macro file.");
    assert.ok(!existsSync(path.join(elsewhere, 'ui')));
});
