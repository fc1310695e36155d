// What the uninstaller takes away and what it leaves.
import assert from 'node:assert/strict';
import { existsSync, mkdirSync, rmSync, statSync, symlinkSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test, { after, before, beforeEach } from 'node:test';
import { Ravelin, windowTitle } from '../e2e/lib/ravelin.mjs';
import { dataFolder, prefix, within } from '../e2e/lib/wine.mjs';
import { untilWindow } from '../e2e/lib/windows.mjs';
import { Probe } from './lib/probe.mjs';
import { contentsOf, filesIn, installed, makeSetup, registryValue, removeAll, roaming, runSetup, scopes, silently, uninstall, uninstallInPlace } from './lib/setup.mjs';
import { throughWizard, yes } from './lib/wizard.mjs';

const everyone = scopes['/ALLUSERS'];
const runKey = 'Software\\Microsoft\\Windows\\CurrentVersion\\Run';
const profile = path.join(roaming, 'Ravelin.exe');
const otherUser = 'S-1-5-21-1-2-3-1001';
const otherRoaming = path.join(prefix, 'drive_c/users/other/AppData/Roaming');

let setup, variant, probe;

before(async () => {
    setup = makeSetup('this');
    variant = makeSetup('next', { account: true });
    probe = await Probe.open();
});
after(async () => {
    if (probe && setup) await removeAll(probe, setup);
    await probe?.close();
});
beforeEach(async () => {
    await removeAll(probe, setup);
    await probe.send('forget', 'HKCU', `${runKey} | Ravelin`);
    await probe.send('forget', 'HKU', otherUser);
    for (const folder of [profile, dataFolder(), path.join(prefix, 'drive_c/users/other')]) rmSync(folder, { recursive: true, force: true });
    fill(path.join(profile, 'EBWebView'), 'Cache');
    fill(dataFolder(), 'session.dat');
});

function fill(folder, name) {
    mkdirSync(folder, { recursive: true });
    writeFileSync(path.join(folder, name), 'content');
}

async function install(scope, which = setup) {
    assert.equal(await runSetup(which, ...silently, scope), 0);
}

async function startAtLogOn(executable, hive = 'HKCU', below = '') {
    await probe.send('set', hive, `${below}${runKey} | Ravelin | "${executable}"`);
}

const logOnEntry = () => registryValue(probe, 'HKCU', runKey, 'Ravelin');

async function assertGone(scope) {
    const { folder, root, shortcut } = scopes[scope];
    assert.ok(!existsSync(folder));
    assert.equal(await registryValue(probe, root, setup.key, 'InstallLocation'), undefined);
    assert.ok(!statSync(shortcut, { throwIfNoEntry: false }));
}

for (const [scope, { windowsFolder }] of Object.entries(scopes)) {
    test(`${scope}: silently, all goes but settings and macros`, async () => {
        await install(scope);
        await startAtLogOn(`${windowsFolder}\\Ravelin.exe`);
        await uninstall(probe, windowsFolder, scope);
        await assertGone(scope);
        assert.equal(await logOnEntry(), undefined);
        assert.ok(!existsSync(profile));
        assert.deepEqual(filesIn(dataFolder()), ['session.dat']);
    });

    test(`${scope}: what a replacement that was cut off has left goes as well`, async () => {
        await install(scope);
        for (const name of ['Setup.new', 'Setup.old', 'Setup.done']) fill(path.join(scopes[scope].folder, name, 'ui'), 'index.html');
        await uninstall(probe, windowsFolder, scope);
        await assertGone(scope);
    });
}

test('a log-on entry of another folder\'s Ravelin stays', async () => {
    await install('/ALLUSERS');
    await startAtLogOn('C:\\Portable\\Ravelin.exe');
    await uninstall(probe, everyone.windowsFolder, '/ALLUSERS');
    await assertGone('/ALLUSERS');
    assert.equal(await logOnEntry(), '"C:\\Portable\\Ravelin.exe"');
});

test('from everyone\'s machine it goes for every user who is logged on', async () => {
    await install('/ALLUSERS');
    await startAtLogOn(`${everyone.windowsFolder}\\Ravelin.exe`, 'HKU', `${otherUser}\\`);
    await probe.send('set', 'HKU', `${otherUser}\\Volatile Environment | APPDATA | C:\\users\\other\\AppData\\Roaming`);
    fill(path.join(otherRoaming, 'Ravelin.exe/EBWebView'), 'Cache');
    fill(path.join(otherRoaming, 'Another.exe'), 'Cache');
    await uninstall(probe, everyone.windowsFolder, '/ALLUSERS');
    await assertGone('/ALLUSERS');
    assert.equal(await registryValue(probe, 'HKU', `${otherUser}\\${runKey}`, 'Ravelin'), undefined);
    assert.deepEqual(filesIn(otherRoaming), ['Another.exe/Cache']);
});

test('while another folder\'s Ravelin is installed, what both use stays', async () => {
    await install('/CURRENTUSER');
    await install('/ALLUSERS');
    await uninstall(probe, everyone.windowsFolder, '/ALLUSERS');
    await assertGone('/ALLUSERS');
    assert.deepEqual(filesIn(profile), ['EBWebView/Cache']);
    assert.deepEqual(filesIn(dataFolder()), ['session.dat']);
    assert.deepEqual(filesIn(scopes['/CURRENTUSER'].folder), installed);
});

// Wine does not remove the links of the system below it, so that here only the other half shows.
test('what a link among the engine\'s files leads to stays', async () => {
    await install('/CURRENTUSER');
    const precious = path.join(prefix, 'drive_c/precious');
    fill(precious, 'file');
    symlinkSync(precious, path.join(profile, 'EBWebView/link'));
    await uninstall(probe, scopes['/CURRENTUSER'].windowsFolder, '/CURRENTUSER');
    assert.deepEqual(filesIn(precious), ['file']);
    assert.deepEqual(filesIn(profile), []);
    rmSync(precious, { recursive: true });
});

test('it closes the program, and leaves what it did not install', async () => {
    await install('/ALLUSERS');
    const ravelin = await Ravelin.open({ program: `${everyone.windowsFolder}\\Ravelin.exe` });
    await untilWindow(windowTitle);
    const own = ['notes.txt', 'ui/theme.txt'];
    for (const name of own) writeFileSync(path.join(everyone.folder, name), 'mine');
    await uninstall(probe, everyone.windowsFolder, '/ALLUSERS');
    assert.equal(await within(30_000, ravelin.run.exited, 'the program to end'), 0);
    assert.deepEqual(filesIn(everyone.folder), own);
    assert.equal(await registryValue(probe, 'HKLM', setup.key, 'InstallLocation'), undefined);
    assert.ok(filesIn(dataFolder()).includes('session.dat'));
});

test('a program that cannot be removed stays whole, with its record: 2', async () => {
    const { folder, windowsFolder } = scopes['/CURRENTUSER'];
    await install('/CURRENTUSER');
    await startAtLogOn(`${windowsFolder}\\Ravelin.exe`);
    const before = contentsOf(folder);
    await probe.send('hold', `${windowsFolder}\\Ravelin.exe`);
    try {
        assert.equal(await uninstallInPlace(windowsFolder, '/CURRENTUSER'), 2);
    } finally {
        await probe.send('release');
    }
    assert.deepEqual(contentsOf(folder), before);
    assert.equal(await registryValue(probe, 'HKCU', setup.key, 'InstallLocation'), windowsFolder);
    assert.notEqual(await logOnEntry(), undefined);
    assert.deepEqual(filesIn(profile), ['EBWebView/Cache']);
});

test('a standard user cannot take it from everyone: 740, and nothing is changed', async () => {
    const folder = path.join(prefix, 'drive_c/Tools/Ravelin');
    const windowsFolder = 'C:\\Tools\\Ravelin';
    assert.equal(await runSetup(variant, ...silently, '/ALLUSERS', `/D=${windowsFolder}`), 0);
    const before = contentsOf(folder);
    assert.equal(await uninstallInPlace(windowsFolder, '/ALLUSERS', '/ACCOUNT=User'), 740 % 256);
    assert.deepEqual(contentsOf(folder), before);
    assert.equal(await uninstallInPlace(windowsFolder, '/ALLUSERS', '/ACCOUNT=Admin'), 0);
    assert.deepEqual(filesIn(folder), ['Uninstall.exe']);
    rmSync(folder, { recursive: true });
});

async function byHand(answers) {
    const { windowsFolder } = scopes['/CURRENTUSER'];
    const { code, names } = await throughWizard(`${windowsFolder}\\Uninstall.exe`, 'Ravelin Home Uninstall', answers, { args: ['/CURRENTUSER', `_?=${windowsFolder}`], pictures: 'uninstall' });
    assert.equal(code, 0);
    return names;
}

test('by hand it asks about settings and macros, and takes them on Yes', async () => {
    await install('/CURRENTUSER');
    assert.deepEqual(await byHand({ data: [yes] }), ['confirm', 'data', 'removed']);
    assert.ok(!existsSync(dataFolder()));
    assert.ok(!existsSync(profile));
    assert.deepEqual(filesIn(scopes['/CURRENTUSER'].folder), ['Uninstall.exe']);
});

test('by hand it keeps settings and macros on No', async () => {
    await install('/CURRENTUSER');
    assert.deepEqual(await byHand({}), ['confirm', 'data', 'removed']);
    assert.deepEqual(filesIn(dataFolder()), ['session.dat']);
    assert.ok(!existsSync(profile));
});

test('where there are none it does not ask about settings and macros', async () => {
    await install('/CURRENTUSER');
    rmSync(dataFolder(), { recursive: true });
    assert.deepEqual(await byHand({}), ['confirm', 'removed']);
});
