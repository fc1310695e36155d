// Panels in windows of their own: torn off, acting on the engine, dragged, docked and ended.
import assert from 'node:assert/strict';
import test, { after, afterEach, before } from 'node:test';
import { clicker, detachByButton, ending, grab, hidden, keySpammer, macro, panelPage, physicalBox, shown, titlePlace, untilGone } from './lib/panels.mjs';
import { dragWindow, dropWindow, moveOverPage } from './lib/pointer.mjs';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { Witness } from './lib/witness.mjs';
import { runToEnd, screenshot, until, xdotool } from './lib/wine.mjs';
import { untilWindow, windowState, windowTool } from './lib/windows.mjs';

let ravelin;
let page;
let witness;

before(async () => {
    ravelin = await Ravelin.open();
    page = await ravelin.page();
    await untilWindow(windowTitle);
    await windowTool('move', windowTitle, 20, 20, 460, 600);
});

// Every test begins with all panels in the main window.
afterEach(async () => {
    await witness?.close();
    witness = undefined;
    if (!ravelin) return;
    await xdotool('mouseup', 1);
    await page.evaluate(() => Promise.all([window.stopSpammer(), window.stopKeySpam()]));
    for (const panel of [clicker, keySpammer, macro]) {
        await windowTool('close', panel.window);
        await shown(page, panel);
    }
});

after(async () => await ravelin?.closeOrKill());

// The window shows what the page shows a moment later; matters to pictures only.
const painted = (of) => of.evaluate(() => new Promise((done) => setTimeout(() => requestAnimationFrame(done), 300)));
const clickerButton = (settings) => settings.sbtn;
const setClicker = (text) => page.evaluate((values) => window.updateSpammer(values), text);
const settingsIn = (of) => of.evaluate(() => window.getSettings());

test('the button of a panel puts it into a window of its own, which shows it alone, once', async () => {
    const button = page.getByRole('button', { name: 'Show Auto clicker in a window of its own' });
    const place = await physicalBox(page, button);
    const child = await detachByButton(ravelin, clicker);
    assert.equal(await child.locator('.panel:visible').count(), 1);
    const fitting = await until(async () => {
        const inner = await physicalBox(child, child.locator('#panel-spammer'));
        const state = await windowState(clicker.window);
        return Math.abs(state.height - inner.height) <= 4 && state;
    }, 'the window to fit its panel');
    const corner = await page.evaluate(() => ({ x: screenX * devicePixelRatio, y: screenY * devicePixelRatio }));
    const pressed = { x: corner.x + place.x + place.width / 2, y: corner.y + place.y + place.height / 2 };
    assert.ok(Math.abs(fitting.left + 150 - pressed.x) <= 2 && Math.abs(fitting.top + 20 - pressed.y) <= 2, JSON.stringify(fitting));
    await painted(child);
    await screenshot('panel-torn-off');

    const detach = (id) => page.evaluate((panel) => window.detachPanel('X', panel, 900, 200, 'ravelin'), id);
    assert.match(await detach('panel-spammer'), /already/);
    assert.match(await detach('panel-x'), /no such panel/);
    assert.equal(await windowState('Ravelin - X'), null);
});

test('a panel let go outside the window by its header gets a window there, in the theme in use', async () => {
    await page.locator('#theme-select').selectOption('daylight');
    const from = await titlePlace(page, clicker, windowTitle);
    await moveOverPage(page, from);
    await xdotool('mousedown', 1);
    const way = [from.x + 10, from.x + 60, 460].map((x) => ({ x, y: from.y + 5 }));
    await moveOverPage(page, ...way, { x: 800, y: 300 }, { x: 801, y: 301 });
    await page.getByText('Let go to show Auto clicker in a window of its own').waitFor();
    await screenshot('panel-leaving');
    await xdotool('mouseup', 1);
    await hidden(page, clicker);
    const child = await panelPage(ravelin, clicker);
    const { left, top } = await untilWindow(clicker.window);
    // Half a pixel of the page may be one of the screen.
    const most = Math.ceil(await page.evaluate(() => devicePixelRatio)) - 1;
    assert.ok(Math.abs(left - (801 - 150)) <= most && Math.abs(top - (301 - 20)) <= most, `${left}, ${top}`);
    const theme = () => document.documentElement.dataset.theme;
    assert.deepEqual([await page.evaluate(theme), await child.evaluate(theme)], ['daylight', 'daylight']);
    assert.equal(await child.locator('#theme-select').inputValue(), 'daylight');
    await painted(child);
    await screenshot('panel-daylight');
    await page.locator('#theme-select').selectOption('ravelin');
});

test('what is done in the window acts on the engine, with the settings that it did not touch', async () => {
    await setClicker('0,0,0,40,0,0,0,3,0');
    const child = await detachByButton(ravelin, clicker);
    await until(async () => (await settingsIn(child))?.sms === 40, 'the settings in use');
    await child.getByText('Every 40 ms').waitFor();
    await child.getByText('Right', { exact: true }).click();
    await until(async () => clickerButton(await settingsIn(page)) === 1, 'the edit to arrive');
    assert.equal((await settingsIn(page)).sms, 40);

    witness = await Witness.open({ x: 860, y: 60 });
    await windowTool('place', clicker.window, 500, 420);
    await witness.focus();
    await child.getByRole('button', { name: 'Start clicking' }).click();
    await until(() => witness.fresh('right-up').length === 3, 'three clicks in the other program');
    await ravelin.untilStatus((status) => !status.autoClicking, 'the clicker to stop by itself');
    assert.equal(witness.fresh('left-down').length, 0);
});

test('an edit is not undone by what was saved before it', async () => {
    await setClicker('0,0,3,20,1,0,1,10,0');
    const child = await detachByButton(ravelin, clicker);
    await child.getByText('Every 3.02 s').waitFor();
    await child.getByText('Middle', { exact: true }).click();
    const middle = child.getByRole('radio', { name: 'Middle' });
    await until(async () => {
        assert.equal(await middle.isChecked(), true);
        return clickerButton(await settingsIn(child)) === 2;
    }, 'the session to be saved');
});

test('the window shows what the engine does, whoever started it', async () => {
    await setClicker('0,0,3,20,1,0,1,10,0');
    const child = await detachByButton(ravelin, clicker);
    await windowTool('place', clicker.window, 390, 420);
    witness = await Witness.open({ x: 860, y: 60 });
    await witness.focus();
    await xdotool('key', 'F6');
    await child.getByRole('button', { name: 'Stop clicking' }).waitFor();
    await child.getByText('Clicking', { exact: true }).waitFor();
    await painted(child);
    await screenshot('panel-running');
    await witness.seeStop(() => child.getByRole('button', { name: 'Stop clicking' }).click());
    await ravelin.untilStatus((status) => !status.autoClicking, 'the clicker to stop');
    await child.getByRole('button', { name: 'Start clicking' }).waitFor();
});

test('keys are added, combined and removed from the window', async () => {
    const child = await detachByButton(ravelin, keySpammer);
    witness = await Witness.open({ x: 860, y: 60 });
    await windowTool('place', keySpammer.window, 520, 420);
    await witness.focus();
    await child.getByRole('button', { name: 'Add key' }).click();
    await child.getByText('Press a key', { exact: false }).first().waitFor();
    await xdotool('key', 'b');
    await ravelin.untilStatus((status) => status.keySpamTargets.includes('B'), 'the new key');
    // The press was caught, its release is seen like any other.
    await until(() => witness.fresh('key-up').some((line) => line.a === 66), 'the release of the new key');
    await child.getByRole('button', { name: 'Remove B, key 2' }).waitFor();
    await child.getByText('All together').click();
    await ravelin.untilStatus((status) => status.keySpamChord, 'the keys to be pressed together');
    await page.evaluate(() => window.updateKeySpam('0,0,0,50,0,2'));
    witness.mark();
    await child.getByRole('button', { name: 'Start pressing' }).click();
    const seen = () => witness.fresh().filter(({ kind }) => kind.startsWith('key-')).map(({ kind, a }) => `${kind} ${a}`);
    const chord = ['key-down 32', 'key-down 66', 'key-up 32', 'key-up 66'];
    const atTheEnd = ['key-up 32', 'key-up 66'];
    await until(() => seen().length >= 10, 'the keys in the other program');
    assert.deepEqual(seen(), [...chord, ...chord, ...atTheEnd]);
    await ravelin.untilStatus((status) => !status.keySpamming, 'the end of the presses');
    await screenshot('panel-keys');
    await child.getByRole('button', { name: 'Remove B, key 2' }).click();
    await ravelin.untilStatus((status) => status.keySpamTargets.length === 1, 'the key to go');
    await child.getByText('In turn').click();
    await ravelin.untilStatus((status) => !status.keySpamChord, 'the keys to be pressed in turn');
});

test('dropped elsewhere it stays there; dropped on the main window it goes and the panel is back', async () => {
    const child = await detachByButton(ravelin, clicker);
    await windowTool('place', clicker.window, 620, 180);
    const before = await untilWindow(clicker.window, (state) => state.left === 620);
    let hold = await grab(child, clicker);
    await dragWindow(hold, { x: hold.x - 10, y: hold.y + 90 });
    await dragWindow(hold, { x: hold.x + 90, y: hold.y + 110 });
    await dropWindow(clicker.window);
    await moveOverPage(page, { x: 100, y: 100 });
    const { left, top, width, height } = await windowState(clicker.window);
    assert.deepEqual([left, top, width, height], [before.left + 80, before.top + 200, before.width, before.height]);
    assert.equal((await ravelin.statusNow()).panelHover, false);

    hold = await grab(child, clicker);
    await dragWindow(hold, { x: 300, y: 300 });
    await ravelin.untilStatus((status) => status.panelHover, 'the hover to be told');
    await page.getByText('Drop the panel here').waitFor();
    assert.equal((await windowState(clicker.window)).foreground, true);
    await painted(page);
    await screenshot('panel-hover');
    await dragWindow(hold, { x: 900, y: 500 });
    await ravelin.untilStatus((status) => !status.panelHover, 'the hover to end');
    await page.getByText('Drop the panel here').waitFor({ state: 'detached' });
    await dragWindow(hold, { x: 300, y: 320 });
    await ravelin.untilStatus((status) => status.panelHover, 'the hover to be told again');
    await xdotool('mouseup', 1);
    await untilGone(clicker.window);
    await shown(page, clicker);
    await ravelin.untilStatus((status) => !status.panelHover, 'the hover to be over');
});

test('its button closes it, and the panel is back', async () => {
    const child = await detachByButton(ravelin, macro);
    await ending(child.getByRole('button', { name: 'Close this window' }).click());
    await untilGone(macro.window);
    await shown(page, macro);
});

test('a window whose process is killed while it hovers gives its panel back', async () => {
    const child = await detachByButton(ravelin, clicker);
    await windowTool('place', clicker.window, 620, 180);
    const hold = await grab(child, clicker);
    await dragWindow(hold, { x: 300, y: 300 });
    await ravelin.untilStatus((status) => status.panelHover, 'the hover to be told');
    await runToEnd('taskkill', ['/f', '/pid', await windowTool('process', clicker.window)]);
    await shown(page, clicker);
    await untilGone(clicker.window);
    await ravelin.untilStatus((status) => !status.panelHover, 'the hover to be over');
    await xdotool('mouseup', 1);
    await detachByButton(ravelin, clicker);
});

test('several windows live side by side, and closing the main window ends them all', async () => {
    for (const [panel, left, top] of [[clicker, 500, 20], [keySpammer, 500, 480], [macro, 20, 660]]) {
        await detachByButton(ravelin, panel);
        await windowTool('place', panel.window, left, top);
    }
    await screenshot('panels-all-out');
    assert.equal(await ravelin.close(), 0);
    ravelin = undefined;
    await untilGone('Ravelin');
    const left = await runToEnd('taskkill', ['/f', '/im', 'Ravelin.exe']);
    assert.notEqual(left.code, 0, 'a process was left');
});
