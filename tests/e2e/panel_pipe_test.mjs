// Who may act through the pipe of the running program, and a panel's window without that program.
import assert from 'node:assert/strict';
import { cpSync, rmSync } from 'node:fs';
import path from 'node:path';
import test, { after, afterEach } from 'node:test';
import { clicker, detachByButton, ending, panelPage, untilGone } from './lib/panels.mjs';
import { Ravelin } from './lib/ravelin.mjs';
import { Witness } from './lib/witness.mjs';
import { programFolder, runToEnd, scratch, screenshot, start, toolFolder, until, windowsPath, within } from './lib/wine.mjs';
import { untilWindow } from './lib/windows.mjs';

const pipeTool = windowsPath(path.join(toolFolder, 'pipe_tool.exe'));
const elsewhere = path.join(scratch, 'copy');
const byHand = ['--child', 'Panel|panel-spammer|500|300'];
const panel = { ...clicker, window: 'Ravelin - Panel' };
let ravelin;
let run;

afterEach(async () => {
    run?.process.kill('SIGKILL');
    run = undefined;
});

after(async () => await ravelin?.closeOrKill());

/** Sets the clicker to an interval in seconds and starts it, from the page of a panel's window. */
async function startClicking(page, seconds) {
    await page.evaluate((interval) => window.updateSpammer(`0,0,${interval},0,1,0,1,10,0`), seconds);
    await page.evaluate(() => window.startSpammer());
}
const clicks = (status) => status.autoClicking;

test('another program is never obeyed, and holds up nobody by keeping its connections', async () => {
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    // Takes the clicks.
    const witness = await Witness.open({ x: 860, y: 600 });
    await witness.point();
    const child = await detachByButton(ravelin, clicker);
    for (const message of ['startSpammer|', 'panelHover|1', 'x'.repeat(4000), '|', 'updateSpammer|9,9,9,9,1,1,1,1,1'])
        await runToEnd(pipeTool, ['send', message]);
    run = start(pipeTool, ['hold', '20']);
    await until(() => run.output.includes('holding'), 'the connections');
    await startClicking(child, 7);
    const status = await ravelin.untilStatus(clicks, 'the clicker to run');
    assert.equal(status.panelHover, false);
    const settings = await page.evaluate(() => window.getSettings());
    assert.deepEqual([settings.sh, settings.ss], [0, 7]);
    await witness.seeStop(() => child.evaluate(() => window.stopSpammer()));
    await ravelin.untilStatus((now) => !clicks(now), 'the clicker to stop');
    await witness.close();
    await ending(child.evaluate(() => window.closeThisWindow()));
    await untilGone(clicker.window);
});

test('a copy of the program in another folder is not obeyed either', async () => {
    rmSync(elsewhere, { recursive: true, force: true });
    cpSync(programFolder, elsewhere, { recursive: true });
    const program = windowsPath(path.join(elsewhere, 'Ravelin.exe'));
    run = start(program, byHand, { cwd: elsewhere, env: { RAVELIN_TEST_DEVTOOLS_DIR: ravelin.ports } });
    const copy = await panelPage(ravelin, panel);
    await startClicking(copy, 8);
    const page = await ravelin.page();
    // As it was left by the window of the test before.
    assert.equal((await page.evaluate(() => window.getSettings())).ss, 7);
    assert.equal(clicks(await ravelin.statusNow()), false);
    await ending(copy.evaluate(() => window.closeThisWindow()));
    assert.equal(await within(30_000, run.exited, 'the copy to end'), 0);
});

test('a window that is started by hand opens at its place in the usual theme, and needs no main window', async () => {
    assert.equal(await ravelin.close(), 0);
    run = start('Ravelin.exe', byHand, { env: { RAVELIN_TEST_DEVTOOLS_DIR: ravelin.ports } });
    const child = await panelPage(ravelin, panel);
    const { left, top } = await untilWindow(panel.window);
    assert.deepEqual([left, top], [350, 280]);
    assert.equal(await child.locator('.panel:visible').count(), 1);
    assert.equal(await child.evaluate(() => document.documentElement.dataset.theme), 'ravelin');
    await startClicking(child, 9);
    await screenshot('panel-alone');
    ravelin = undefined;
    await ending(child.getByRole('button', { name: 'Close this window' }).click());
    assert.equal(await within(30_000, run.exited, 'the panel to end'), 0);
});
