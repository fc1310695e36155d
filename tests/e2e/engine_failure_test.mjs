// A browser engine that refuses, stays silent, is updated or crashes: the user is told, the program
// ends as at every end or goes on, and nothing of it stays behind unseen.
import assert from 'node:assert/strict';
import { copyFileSync, cpSync, rmSync } from 'node:fs';
import path from 'node:path';
import test, { after, afterEach } from 'node:test';
import { enginesOf, engineEnvironment, ignoreRequests, refuseViews, serveViews, whileUpdated } from './lib/engine.mjs';
import { clicker, detachByButton, hidden, panelPage, shown, untilGone } from './lib/panels.mjs';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { dataFolder, clearDataFolder, programFolder, runToEnd, scratch, screenshot, start, textOf, toolFolder, until, windowsPath, within, xdotool } from './lib/wine.mjs';
import { untilWindow, windowState, windowTool } from './lib/windows.mjs';
import { Witness } from './lib/witness.mjs';

const f6 = 117;
let ravelin;
let witness;

afterEach(async () => {
    serveViews();
    await witness?.close();
    witness = undefined;
    if (ravelin) await ravelin.closeOrKill();
    ravelin = undefined;
});

const impatient = path.join(scratch, 'impatient');
after(() => rmSync(impatient, { recursive: true, force: true }));

/** A copy of the program that waits some seconds for its view. */
function impatientProgram() {
    rmSync(impatient, { recursive: true, force: true });
    cpSync(programFolder, impatient, { recursive: true });
    copyFileSync(path.join(toolFolder, 'ravelin_impatient.exe'), path.join(impatient, 'Ravelin.exe'));
    return windowsPath(path.join(impatient, 'Ravelin.exe'));
}

const session = () => textOf(path.join(dataFolder(), 'session.dat'));

/** Other windows' titles begin with the message's. */
const messageIsThere = async () => (await windowTool('list')).split('\n').includes('Ravelin');

/** The program's message is there with these words, its engine has stopped, and its end is that of a failure. */
async function assertMessage(run, words, picture) {
    await until(messageIsThere, 'the message', 60_000);
    const text = await windowTool('text', 'Ravelin');
    for (const word of words) assert.match(text, word);
    await screenshot(picture);
    // Everything is over but the message: the session is saved, and hotkeys reach whom they are for.
    assert.match(session(), /^SETTINGS:/);
    assert.equal(await windowState(windowTitle), null);
    witness = await Witness.open({ x: 700, y: 560 });
    await witness.focus();
    await xdotool('key', 'F6');
    await until(() => witness.fresh('key-up').some(({ a }) => a === f6), 'the hotkey to reach the program in front');
    assert.ok(witness.fresh('key-down').some(({ a }) => a === f6));
    await witness.close();
    witness = undefined;
    await windowTool('close', 'Ravelin');
    assert.equal(await within(30_000, run.exited, 'the program to end'), 1);
    assert.notEqual((await runToEnd('taskkill', ['/f', '/im', 'Ravelin.exe'])).code, 0, 'a process was left');
}

function startRefused(program = 'Ravelin.exe') {
    clearDataFolder();
    return start(program, [], { env: engineEnvironment });
}

test('refused because an old engine still runs, the program says so long before the limit', async () => {
    refuseViews('8007139F');
    const began = Date.now();
    const run = startRefused();
    await until(messageIsThere, 'the message', 60_000);
    assert.ok(Date.now() - began < 60_000);
    await assertMessage(run, [/was updated/, /Close all windows of Ravelin and start it again/], 'engine-updated');
});

test('refused for another reason, the message has the code', async () => {
    refuseViews('80070005');
    await assertMessage(startRefused(), [/refused/, /0x80070005/], 'engine-refused');
    refuseViews('80004004');
    await assertMessage(startRefused(), [/refused/, /0x80004004/], 'engine-aborted');
});

test('an engine that never answers is given up at the limit', async () => {
    ignoreRequests();
    await assertMessage(startRefused(impatientProgram()), [/did not answer/], 'engine-silent');
    // The same program is patient enough for an engine that works.
    serveViews();
    ravelin = await Ravelin.open({ program: windowsPath(path.join(impatient, 'Ravelin.exe')), env: engineEnvironment });
    await untilWindow(windowTitle);
});

test('a panel whose window never comes or is refused is back in the main page', async () => {
    ravelin = await Ravelin.open({ program: impatientProgram(), env: engineEnvironment });
    const page = await ravelin.page();
    const button = page.getByRole('button', { name: `Show ${clicker.title} in a window of its own` });
    for (const misbehave of [ignoreRequests, () => refuseViews('8007139F'), () => refuseViews('80070005')]) {
        misbehave();
        await button.click();
        await hidden(page, clicker);
        await page.locator(`#${clicker.id}`).waitFor({ state: 'visible', timeout: 60_000 });
        assert.equal(await windowState(clicker.window), null);
        assert.equal(await messageIsThere(), false);
    }
    serveViews();
    await detachByButton(ravelin, clicker);
});

test('after an update of the engine no panel is detached, and the user is told', async () => {
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    const button = page.getByRole('button', { name: `Show ${clicker.title} in a window of its own` });
    await whileUpdated(async () => {
        await button.click();
        await page.getByText('Close all windows of Ravelin and start it again', { exact: false }).waitFor();
        await screenshot('engine-updated-panel');
        await shown(page, clicker);
        // Started by hand it is refused by the engine itself, and ends.
        const child = await runToEnd('Ravelin.exe', ['--child', `${clicker.title}|${clicker.id}|500|300`]);
        assert.equal(child.code, 1);
        assert.equal(await windowState(clicker.window), null);
    });
    await detachByButton(ravelin, clicker);
    // Nobody shares the old engine any more.
    assert.equal(await ravelin.close(), 0);
    ravelin = undefined;
    await whileUpdated(async () => {
        ravelin = await Ravelin.open();
        assert.equal(await ravelin.closeOrKill(), 0);
        ravelin = undefined;
    });
});

const crashes = (log) => textOf(log).split('the page has crashed').length - 1;

/** Ends the process of this engine's page, whichever it is of those that stand ready. */
async function crashPage(log, engine) {
    const before = crashes(log);
    for (const pid of engine().pages) process.kill(pid, 'SIGKILL');
    await until(() => crashes(log) > before, 'the crash');
}

/** The page of the main window asks for the status again. */
async function pageIsBack() {
    rmSync(path.join(dataFolder(), 'status.txt'), { force: true });
    await until(() => textOf(path.join(dataFolder(), 'status.txt')), 'the page to be back', 60_000);
}

test('a page whose process crashes is back, in the main window and in a panel\'s', async () => {
    ravelin = await Ravelin.open();
    let page = await ravelin.page();
    await page.evaluate(() => window.updateSpammer('0,0,0,77,0,0,1,10,0'));
    await detachByButton(ravelin, clicker);
    const [main, child] = enginesOf(ravelin.log).map(({ profile }) => () => enginesOf(ravelin.log).find((engine) => engine.profile === profile));
    await ravelin.detach();
    ravelin.attached = undefined;

    await crashPage(ravelin.log, main);
    await crashPage(ravelin.log, child);
    await pageIsBack();
    page = await ravelin.page();
    await page.getByText('Macro', { exact: true }).first().waitFor();
    await page.waitForFunction(() => window.getSettings !== undefined);
    assert.equal((await page.evaluate(() => window.getSettings())).sms, 77);
    assert.equal((await ravelin.statusNow()).state, 'Idle');
    await screenshot('page-crashed');
    const panel = await panelPage(ravelin, clicker);
    await panel.getByText('Every 77 ms').waitFor();
});

test('a page that crashes again and again ends the program with a message', async () => {
    ravelin = await Ravelin.open();
    const { run, log } = ravelin;
    const [{ profile }] = enginesOf(log);
    const engine = () => enginesOf(log).find((each) => each.profile === profile);
    for (let times = 0; times < 3; ++times) {
        await crashPage(log, engine);
        await pageIsBack();
    }
    ravelin = undefined;
    await crashPage(log, engine);
    await assertMessage(run, [/stopped working/, /are saved/], 'page-crashes');
});

test('when the browser itself crashes the session is saved and a message tells of it', async () => {
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    await page.evaluate(() => window.updateSpammer('0,0,0,78,0,0,1,10,0'));
    await ravelin.detach();
    const { run, log } = ravelin;
    const [{ main }] = enginesOf(log);
    ravelin = undefined;
    process.kill(main, 'SIGKILL');
    await assertMessage(run, [/stopped working/, /are saved/], 'browser-crashed');
    assert.match(session(), /0,0,0,78,0,0,1,10,0/);
});

test('when the browser of a panel crashes its window goes and the panel is back', async () => {
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    const known = enginesOf(ravelin.log).map(({ profile }) => profile);
    await detachByButton(ravelin, clicker);
    const { main } = enginesOf(ravelin.log).find(({ profile }) => !known.includes(profile));
    process.kill(main, 'SIGKILL');
    await untilGone(clicker.window);
    await shown(page, clicker);
    assert.equal(await messageIsThere(), false);
});

test('closed while its page calls it without a pause, the program ends in order', async () => {
    for (let round = 0; round < 3; ++round) {
        const once = await Ravelin.open();
        const page = await once.page();
        await page.evaluate(() => {
            setInterval(() => { for (let i = 0; i < 20; ++i) window.getSettings(); }, 1);
        });
        assert.equal(await once.closeOrKill(), 0, `round ${round + 1}`);
    }
});
