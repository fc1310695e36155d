// A panel's window and the main process: on top with it, ended with it, and none without its pipe.
import assert from 'node:assert/strict';
import path from 'node:path';
import test, { after, afterEach } from 'node:test';
import { clicker, detachByButton, ending, panelPage, shown, untilGone } from './lib/panels.mjs';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { runToEnd, start, toolFolder, until, windowsPath, within } from './lib/wine.mjs';
import { untilWindow, windowState, windowTool } from './lib/windows.mjs';

const byHand = ['--child', 'Panel|panel-spammer|500|300'];
const panelByHand = { ...clicker, window: 'Ravelin - Panel' };
const place = { windowX: 40, windowY: 40, windowWidth: 500, windowHeight: 600 };
let ravelin;
let run;

afterEach(async () => {
    run?.process.kill('SIGKILL');
    run = undefined;
});

after(async () => await ravelin?.closeOrKill());

const setOnTop = (page, on) => page.evaluate((value) => window.setAppSetting('alwaysOnTop', value), on ? '1' : '0');
const untilOnTop = (title, on) => untilWindow(title, (state) => state.topmost === on, `"${title}" ${on ? '' : 'no longer '}on top`);

test('a panel is on top while its main window is, from its opening on', async () => {
    ravelin = await Ravelin.open({ settings: { ...place, alwaysOnTop: 1 } });
    const page = await ravelin.page();
    await untilOnTop(windowTitle, true);
    await detachByButton(ravelin, clicker);
    await untilOnTop(clicker.window, true);
    await windowTool('place', clicker.window, 300, 300);
    for (const on of [false, true, false]) {
        await setOnTop(page, on);
        await untilOnTop(windowTitle, on);
        await untilOnTop(clicker.window, on);
    }
    assert.deepEqual((({ left, top }) => [left, top])(await windowState(clicker.window)), [300, 300]);
});

test('killing the main process ends its panels, and leaves one that was started by hand', async () => {
    run = start('Ravelin.exe', byHand, { env: { RAVELIN_TEST_DEVTOOLS_DIR: ravelin.ports } });
    const child = await panelPage(ravelin, panelByHand);
    await untilWindow(clicker.window);
    await runToEnd('taskkill', ['/f', '/pid', await windowTool('process', windowTitle)]);
    await within(30_000, ravelin.run.exited, 'the main process to end');
    await untilGone(clicker.window);
    // Its page still answers, and it ends in its own good time.
    assert.equal(await child.evaluate(() => 6 * 7), 42);
    assert.ok(!run.ended);
    await ending(child.evaluate(() => window.closeThisWindow()));
    assert.equal(await within(30_000, run.exited, 'the panel to end'), 0);
    await ravelin.detach();
    ravelin = undefined;
    const left = await runToEnd('taskkill', ['/f', '/im', 'Ravelin.exe']);
    assert.notEqual(left.code, 0, 'a process was left');
});

test('while another process has the name of the pipe a panel stays, with the reason, and opens once it is free', async () => {
    run = start(windowsPath(path.join(toolFolder, 'pipe_tool.exe')), ['serve']);
    await until(() => run.output.includes('serving'), 'the name to be taken');
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    await page.getByRole('button', { name: `Show ${clicker.title} in a window of its own` }).click();
    await page.getByText("Another user's Ravelin is running").waitFor();
    await shown(page, clicker);
    assert.equal(await windowState(clicker.window), null);

    run.process.kill('SIGKILL');
    await run.exited;
    const detach = () => page.evaluate(() => window.detachPanel('Auto clicker', 'panel-spammer', 900, 200, 'ravelin'));
    await until(async () => !(await detach()), 'the name to be taken over');
    const child = await panelPage(ravelin, clicker);
    await child.evaluate(() => window.updateSpammer('0,0,7,0,1,0,1,10,0'));
    await until(async () => (await page.evaluate(() => window.getSettings())).ss === 7, 'the edit to arrive');
});
