// What survives a restart, a kill and a crash of the real program.
import assert from 'node:assert/strict';
import { cpSync, existsSync, mkdirSync, readdirSync, rmSync, statSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test, { afterEach } from 'node:test';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { Witness } from './lib/witness.mjs';
import { besideProgram, clearDataFolder, dataFolder, programFolder, runToEnd, start, textOf, toolFolder, until, windowsPath, within, xdotool } from './lib/wine.mjs';
import { untilWindow, windowTool } from './lib/windows.mjs';

const session = () => path.join(dataFolder(), 'session.dat');
let ravelin;
let witness;

afterEach(async () => {
    await witness?.close();
    witness = undefined;
    if (ravelin) await ravelin.close();
    ravelin = undefined;
});

async function open(options) {
    ravelin = await Ravelin.open(options);
    return await ravelin.page();
}

async function closeAndReopen() {
    assert.equal(await ravelin.close(), 0);
    ravelin = undefined;
    return await open({ keepData: true });
}

const ask = (page, method, ...args) => page.evaluate(([name, values]) => window[name](...values), [method, args]);

test('settings, hotkeys, profiles, macro, place and panel order survive a restart', async () => {
    let page = await open();
    witness = await Witness.open();
    await ask(page, 'updateSpammer', '1,2,3,4,1,1,0,7,0');
    await ask(page, 'updateKeySpam', '0,0,9,8,0,6');
    await ask(page, 'addProfile', 'Second');
    await ask(page, 'updateSpammer', '0,0,0,44,0,0,1,10,0');
    await witness.focus();
    await ask(page, 'reassignKey', 'play');
    await xdotool('key', 'F3');
    await ravelin.untilStatus((status) => status.hkPlay === 'F3', 'the new hotkey');
    await xdotool('key', 'F8');
    await ravelin.untilStatus((status) => status.state === 'Recording', 'the recording');
    await xdotool('key', 'a');
    await until(() => witness.fresh('key-up').some((line) => line.a === 65), 'the key');
    await xdotool('key', 'F8');
    const { count } = await ravelin.untilStatus((status) => status.state === 'Idle', 'the end of the recording');
    assert.ok(count >= 2);
    await ask(page, 'setPanelOrder', ['panel-tracker', 'panel-ui', 'panel-spammer', 'panel-keyspam', 'panel-profile']);
    await ask(page, 'setAppSetting', 'min:panel-profile', '1');
    await ask(page, 'setAppSetting', 'showWarnings', '0');
    await windowTool('move', windowTitle, 60, 90, 500, 640);

    page = await closeAndReopen();
    const profiles = await ask(page, 'getProfiles');
    assert.deepEqual([profiles.names, profiles.current], [['Default Tracking Profile', 'Second'], 1]);
    assert.equal((await ask(page, 'getSettings')).sms, 44);
    const status = await ravelin.statusNow();
    assert.deepEqual([status.hkPlay, status.count], ['F3', count]);
    const settings = await ask(page, 'getAppSettings');
    assert.equal(settings.panelOrder[0], 'panel-tracker');
    assert.deepEqual([settings.minimizedPanels, settings.showWarnings], [['panel-profile'], false]);
    const place = await untilWindow(windowTitle);
    assert.deepEqual([place.left, place.top, place.width, place.height], [60, 90, 500, 640]);
    await ask(page, 'switchProfile', 0);
    const first = await ask(page, 'getSettings');
    assert.deepEqual([first.sh, first.sm, first.ss, first.sms, first.sbtn, first.kss, first.ksRptTimes], [1, 2, 3, 4, 1, 9, 6]);
    await ask(page, 'resetHotkeys');
});

test('a killed process loses at most what came after the last background save', async () => {
    const page = await open();
    await ask(page, 'updateSpammer', '0,0,0,123,0,0,1,10,0');
    await until(() => (textOf(session()) ?? '').includes('0,0,0,123,0,0,1,10,0'), 'the background save', 15_000);
    await ravelin.kill();
    ravelin = undefined;
    assert.equal((await ask(await open({ keepData: true }), 'getSettings')).sms, 123);
});

test('a crash saves what was set a moment before', async () => {
    const page = await open();
    // Right behind a background save, so that no further one comes in between.
    const saved = () => (existsSync(session()) ? statSync(session()).mtimeMs : 0);
    const last = saved();
    await until(() => saved() > last, 'a background save', 15_000);
    await ask(page, 'updateSpammer', '0,0,0,321,0,0,1,10,0');
    const run = ravelin.run;
    await windowTool('crash', windowTitle);
    await within(30_000, run.exited, 'the crashed program to end');
    ravelin = undefined;
    assert.match(textOf(session()), /0,0,0,321,0,0,1,10,0/);
    assert.equal((await ask(await open({ keepData: true }), 'getSettings')).sms, 321);
});

test('files of older versions are found in both places and moved', async () => {
    const sample = 'SETTINGS:0,0,0,71,0,0,1,10,0,0,0,1,1,1,1,0,1,0,500,119,118,0,117,0,0,0,5,1,10,120,32,32,0,0,0,121\r\n'
        + 'CURRENT:0\r\nPROFILE:Old\r\n3,0.5,0,0,0,65,1,0\r\n';
    clearDataFolder();
    const folder = path.join(besideProgram, 'older');
    rmSync(folder, { recursive: true, force: true });
    cpSync(programFolder, folder, { recursive: true });
    writeFileSync(path.join(folder, 'session.mcr'), sample);
    writeFileSync(path.join(folder, 'appsettings.txt'), 'showWarnings=0\r\n');
    writeFileSync(path.join(folder, 'theme.txt'), 'light\r\n');
    writeFileSync(path.join(folder, 'status.txt'), 'old');
    writeFileSync(path.join(folder, 'macroevents.txt'), 'old');
    const run = start(windowsPath(path.join(folder, 'Ravelin.exe')), [], { cwd: folder });
    await untilWindow(windowTitle);
    for (const name of ['session.mcr', 'appsettings.txt', 'theme.txt', 'status.txt', 'macroevents.txt'])
        assert.ok(!existsSync(path.join(folder, name)), name);
    assert.equal(textOf(path.join(dataFolder(), 'theme.txt')), 'light\r\n');
    await until(() => /"count":1/.test(textOf(path.join(dataFolder(), 'status.txt')) ?? ''), 'the old macro');
    await windowTool('close', windowTitle);
    assert.equal(await within(30_000, run.exited, 'the program to end'), 0);
    assert.match(textOf(path.join(dataFolder(), 'appsettings.txt')), /showWarnings=0/);

    clearDataFolder();
    mkdirSync(dataFolder(), { recursive: true });
    writeFileSync(path.join(dataFolder(), 'session.rvnmacro'), sample);
    const page = await open({ keepData: true });
    assert.deepEqual((await ask(page, 'getProfiles')).names, ['Default Tracking Profile', 'Old']);
    assert.equal((await ask(page, 'getSettings')).sms, 71);
    assert.ok(!existsSync(path.join(dataFolder(), 'session.rvnmacro')));
});

/** Every file and folder below with what it holds and when it was written. */
function everythingIn(folder) {
    if (!existsSync(folder)) return [];
    return readdirSync(folder, { recursive: true }).sort().map((name) => {
        const file = path.join(folder, name);
        const { mtimeMs } = statSync(file);
        return [name, mtimeMs, textOf(file)];
    });
}

test('a second start writes nothing', async () => {
    // Everything that a first start would move, delete, write or register.
    clearDataFolder();
    mkdirSync(dataFolder(), { recursive: true });
    writeFileSync(path.join(dataFolder(), 'session.mcr'), 'older');
    writeFileSync(path.join(dataFolder(), 'appsettings.txt'), 'launchOnStartup=1\r\n');
    const folder = path.join(besideProgram, 'second');
    rmSync(folder, { recursive: true, force: true });
    cpSync(programFolder, folder, { recursive: true });
    for (const name of ['theme.txt', 'status.txt', 'macroevents.txt']) writeFileSync(path.join(folder, name), 'older');
    const entry = ['HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Run', '/v', 'Ravelin'];
    await runToEnd('reg', ['delete', ...entry, '/f']);
    const before = [everythingIn(dataFolder()), everythingIn(folder)];

    // The lock is another's, who has no window and writes nothing either.
    const holder = start(windowsPath(path.join(toolFolder, 'window_tool.exe')), ['hold', 'Local\\RavelinUI_SingleInstance']);
    try {
        await until(() => holder.output.includes('ready'), 'the lock to be held');
        assert.equal((await runToEnd(windowsPath(path.join(folder, 'Ravelin.exe')), [], { cwd: folder })).code, 0);
    } finally {
        holder.process.kill();
        await within(20_000, holder.exited, 'the holder of the lock to end');
    }
    assert.deepEqual([everythingIn(dataFolder()), everythingIn(folder)], before);
    assert.notEqual((await runToEnd('reg', ['query', ...entry])).code, 0, 'an entry for log-on');
});
