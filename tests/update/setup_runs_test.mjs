// What every kind of run of the setup program gives: its exit code, what is left on the machine and
// what runs afterwards.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { copyFileSync, cpSync, existsSync, mkdirSync, renameSync, rmSync, statfsSync, statSync, symlinkSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test, { after, afterEach, before, beforeEach } from 'node:test';
import { Ravelin } from '../e2e/lib/ravelin.mjs';
import { prefix, runToEnd, scratch, textOf, toolFolder, until, windowsPath, within } from '../e2e/lib/wine.mjs';
import { untilWindow, windowState, windowTool } from '../e2e/lib/windows.mjs';
import { Probe } from './lib/probe.mjs';
import { productOf } from './lib/product.mjs';
import { asUpdate, contentsOf, filesIn, installed, makeSetup, registryValue, removeAll, runSetup, scopes, silently, versionIn } from './lib/setup.mjs';
import { cancel, no, setupWizard } from './lib/wizard.mjs';

const quietly = silently.filter((word) => word !== '/CLOSEAPPLICATIONS');
const titles = Object.fromEntries(['this', 'beta', 'next'].map((name) => [name, productOf(name === 'this' ? undefined : name).windowTitle]));
// By this: the version that is run comes between them.
const older = 'this', run = 'beta', newer = 'next';

let setups, variant, probe;

before(async () => {
    setups = Object.fromEntries([older, run, newer].map((name) => [name, makeSetup(name)]));
    variant = makeSetup(newer, { account: true, options: ['-DMOST_PROCESSES=8'] });
    probe = await Probe.open();
    // The desktop that was there before the tests' own ends a moment later, and its shell with it.
    await until(async () => (await probe.send('running', 'explorer.exe')).running === 1, 'one shell', 60_000);
});
after(async () => {
    if (probe && setups) await removeAll(probe, setups[older]);
    await probe?.close();
});
beforeEach(() => removeAll(probe, setups[older]));

async function recorded(scope, name = 'DisplayVersion') {
    return await registryValue(probe, scopes[scope].root, setups[older].key, name);
}

/** This version is in the scope, whole and recorded as itself, or there is nothing at all. */
async function assertLeft(scope, version) {
    const { folder, shortcut } = scopes[scope];
    const left = {
        files: filesIn(folder),
        version: versionIn(folder, Object.values(setups)),
        recorded: await recorded(scope),
        shortcut: existsSync(shortcut) && statSync(shortcut).size > 0,
    };
    assert.deepEqual(left, version === 'none'
        ? { files: [], version, recorded: undefined, shortcut: false }
        : { files: installed, version, recorded: setups[version].version, shortcut: true });
}

/** The version runs, started by the desktop's shell and by nothing with more rights. */
async function assertStarted(version) {
    await untilWindow(titles[version], undefined, `version ${version} to be started`, 60_000);
    const process = await windowTool('process', titles[version]);
    assert.deepEqual(await probe.send('parent', process), { parent: 'explorer.exe' });
}

async function assertNothingStarted() {
    assert.equal((await probe.send('running', 'Ravelin.exe')).running, 0);
}

async function install(name, scope, ...switches) {
    if (name !== 'none') assert.equal(await runSetup(setups[name], ...silently, scope, ...switches), 0);
}

async function open(scope) {
    const ravelin = await Ravelin.open({ program: `${scopes[scope].windowsFolder}\\Ravelin.exe` });
    return ravelin.run;
}

// Over what; how; the exit code, what is left and what runs then.
const unattended = [
    ['none', silently, 0, run],
    [older, silently, 0, run],
    [run, silently, 0, run],
    [newer, silently, 0, run],
    ['none', asUpdate, 0, run, run],
    [older, asUpdate, 0, run, run],
    [run, asUpdate, 0, run, run],
    [newer, asUpdate, 2, newer, newer],
];
const kind = { none: 'nothing', [older]: 'an older version', [run]: 'the same version', [newer]: 'a newer version' };
const way = new Map([[silently, 'silently'], [asUpdate, 'as an update']]);

for (const scope of Object.keys(scopes)) {
    const [other] = Object.keys(scopes).filter((name) => name !== scope);

    for (const [over, switches, code, leaves, starts] of unattended) {
        test(`${scope} over ${kind[over]}, ${way.get(switches)}: ${code}`, async () => {
            await install(over, scope);
            assert.equal(await runSetup(setups[run], ...switches, scope), code);
            await assertLeft(scope, leaves);
            await assertLeft(other, 'none');
            if (starts) await assertStarted(starts);
            else await assertNothingStarted();
        });
    }

    test(`${scope} over a running version, silently: closes it, 0`, async () => {
        await install(older, scope);
        const running = await open(scope);
        assert.equal(await runSetup(setups[run], ...silently, scope), 0);
        assert.equal(await within(30_000, running.exited, 'the old version to end'), 0);
        await assertLeft(scope, run);
        await assertNothingStarted();
    });

    test(`${scope} over a running version, as an update: closes it and starts the new one, 0`, async () => {
        await install(older, scope);
        const running = await open(scope);
        assert.equal(await runSetup(setups[run], ...asUpdate, scope), 0);
        assert.equal(await within(30_000, running.exited, 'the old version to end'), 0);
        await assertLeft(scope, run);
        await assertStarted(run);
    });

    test(`${scope} over a running version, silently without leave to close it: 2`, async () => {
        await install(older, scope);
        await open(scope);
        assert.equal(await runSetup(setups[run], ...quietly, scope), 2);
        await assertLeft(scope, older);
        assert.notEqual(await windowState(titles[older]), null, 'it still runs');
    });

    test(`${scope} as an update over a version with a file in use: 2, and the old version is started`, async () => {
        await install(older, scope);
        const before = contentsOf(scopes[scope].folder);
        await probe.send('hold', `${scopes[scope].windowsFolder}\\Uninstall.exe`);
        try {
            assert.equal(await runSetup(setups[run], ...asUpdate, scope), 2);
        } finally {
            await probe.send('release');
        }
        assert.deepEqual(contentsOf(scopes[scope].folder), before);
        await assertLeft(scope, older);
        await assertStarted(older);
    });
}

// The wizard: over what; what is answered; the exit code and what is left.
const chosen = { '/ALLUSERS': 1201, '/CURRENTUSER': 1202 };
const attended = [
    ['none', {}, 0, run, ['welcome', 'scope', 'folder', 'finish']],
    [older, {}, 0, run, ['welcome', 'scope', 'folder', 'finish']],
    [newer, {}, 0, run, ['welcome', 'scope', 'folder', 'newer', 'finish']],
    [newer, { newer: [no, cancel] }, 1, newer, ['welcome', 'scope', 'folder', 'newer', 'quit']],
    [older, { welcome: [cancel] }, 1, older, ['welcome', 'quit']],
    ['none', { folder: [cancel] }, 1, 'none', ['welcome', 'scope', 'folder', 'quit']],
];

for (const scope of Object.keys(scopes)) {
    for (const [over, answers, code, leaves, pages] of attended) {
        test(`${scope} over ${kind[over]}, in the wizard with ${JSON.stringify(answers)}: ${code}`, async () => {
            await install(over, scope);
            const { code: actual, names } = await setupWizard(setups[run], { scope: [chosen[scope], 1], ...answers });
            assert.deepEqual([...new Set(names.filter((name) => name !== 'runtime'))], pages);
            assert.equal(actual, code);
            await assertLeft(scope, leaves);
            await assertNothingStarted();
        });
    }
}

test('over a running version, in the wizard with leave to close it: 0', async () => {
    await install(older, '/ALLUSERS');
    const running = await open('/ALLUSERS');
    const { code, names } = await setupWizard(setups[run]);
    assert.equal(code, 0);
    assert.ok(names.includes('running'));
    assert.equal(await within(30_000, running.exited, 'the old version to end'), 0);
    await assertLeft('/ALLUSERS', run);
});

test('over a running version, in the wizard without leave to close it: 1', async () => {
    await install(older, '/ALLUSERS');
    await open('/ALLUSERS');
    const { code, names } = await setupWizard(setups[run], { running: [cancel] });
    assert.ok(names.includes('running'));
    assert.equal(code, 1);
    await assertLeft('/ALLUSERS', older);
    assert.notEqual(await windowState(titles[older]), null, 'it still runs');
});

test('the wizard starts the program by the shell as well', async () => {
    const { code } = await setupWizard(setups[run], { finish: [1] });
    assert.equal(code, 0);
    await assertStarted(run);
});

// A list of processes with room for eight has no place for the one that runs.
test('a running version is found among any number of processes', async () => {
    await install(older, '/ALLUSERS');
    const running = await open('/ALLUSERS');
    assert.equal(await runSetup(variant, ...silently, '/ALLUSERS'), 0);
    assert.equal(await within(30_000, running.exited, 'the old version to end'), 0);
    assert.equal(versionIn(scopes['/ALLUSERS'].folder, [variant]), newer);
});

// Somebody who is no administrator.
const drive = path.join(prefix, 'drive_c');
const asUser = '/ACCOUNT=User';

for (const [over, starts] of [[older, older], ['none', undefined]]) {
    test(`for everyone by a standard user over ${kind[over]}: 740, and nothing but the old version is started`, async () => {
        await install(over, '/ALLUSERS');
        // What lies in the root of the drive that setup works on is not the old version.
        const decoy = path.join(drive, 'Ravelin.exe');
        const log = path.join(scratch, 'decoy.txt');
        rmSync(log, { force: true });
        copyFileSync(path.join(toolFolder, 'stand_in_installer.exe'), decoy);
        try {
            const { code } = await runToEnd(windowsPath(variant.file), [...asUpdate, '/ALLUSERS', asUser],
                { cwd: drive, env: { RAVELIN_INSTALLER_LOG: windowsPath(log) } });
            // Of the exit code, the system below Wine passes one byte on.
            assert.equal(code, 740 % 256);
            await assertLeft('/ALLUSERS', over);
            if (starts) await assertStarted(starts);
            else await assertNothingStarted();
            assert.equal(textOf(log), null);
        } finally {
            rmSync(decoy);
        }
    });
}

test('for everyone by a standard user, but no update: 740, and nothing is started', async () => {
    await install(older, '/ALLUSERS');
    assert.equal(await runSetup(variant, ...silently, '/ALLUSERS', asUser), 740 % 256);
    await assertLeft('/ALLUSERS', older);
    await assertNothingStarted();
});

test('for a standard user alone: 0', async () => {
    await install(older, '/CURRENTUSER');
    assert.equal(await runSetup(variant, ...asUpdate, '/CURRENTUSER', asUser), 0);
    assert.equal(versionIn(scopes['/CURRENTUSER'].folder, [variant]), newer);
    await assertStarted(newer);
});

test('a standard user is not asked for whom to install', async () => {
    const { code, names } = await setupWizard(variant, {}, { args: [asUser] });
    assert.equal(code, 0);
    assert.ok(!names.includes('scope'), names.join());
    assert.equal(versionIn(scopes['/CURRENTUSER'].folder, [variant]), newer);
});

// A disk of its own for setup, with this many bytes to go.
const disk = path.join(scratch, 'small-disk');
const letter = path.join(prefix, 'dosdevices/r:');
const onDisk = path.join(disk, 'Ravelin');
const there = '/D=R:\\Ravelin';

async function withDisk(action) {
    mkdirSync(disk, { recursive: true });
    execFileSync('mount', ['-t', 'tmpfs', '-o', 'size=24m', 'tmpfs', disk]);
    rmSync(letter, { force: true });
    symlinkSync(disk, letter);
    try {
        await action();
    } finally {
        await runToEnd('taskkill', ['/f', '/im', 'Ravelin.exe']);
        rmSync(letter);
        execFileSync('umount', ['--lazy', disk]);
    }
}

function leaveFree(bytes) {
    rmSync(path.join(disk, 'filler'), { force: true });
    const { bavail, bsize } = statfsSync(disk);
    writeFileSync(path.join(disk, 'filler'), Buffer.alloc(Math.max(0, bavail * bsize - bytes)));
}

const sizeOf = (...files) => files.reduce((sum, file) => sum + statSync(path.join(setups[newer].program, file)).size, 0);

test('a disk that runs full anywhere in the middle keeps every old file, and one that does not gets every new one', async () => {
    await withDisk(async () => {
        await install(older, '/CURRENTUSER', there);
        const before = contentsOf(onDisk);
        assert.equal(versionIn(onDisk, [setups[older]]), older);
        const first = sizeOf('Ravelin.exe');
        const rest = sizeOf('libwebview.dll', 'ui/index.html', 'ui/vendor/Sortable.min.js', 'LICENSE.txt', 'THIRD-PARTY.txt');
        // Before, in and after the first file, in the last one, and in the uninstaller.
        for (const free of [0, first / 2, first + 20_000, first + rest - 20_000, first + rest + 100_000]) {
            leaveFree(free);
            assert.equal(await runSetup(setups[newer], ...silently, '/CURRENTUSER'), 2, `with ${free} bytes`);
            assert.deepEqual(contentsOf(onDisk), before, `with ${free} bytes`);
            assert.equal(await recorded('/CURRENTUSER'), setups[older].version);
        }
        leaveFree(first + rest + 4_000_000);
        assert.equal(await runSetup(setups[newer], ...silently, '/CURRENTUSER'), 0);
        assert.equal(versionIn(onDisk, [setups[newer]]), newer);
        assert.deepEqual(filesIn(onDisk), installed);
        assert.equal(await recorded('/CURRENTUSER'), setups[newer].version);
    });
});

test('an update for which the disk has no room: 2, and the old version is started', async () => {
    await withDisk(async () => {
        await install(older, '/CURRENTUSER', there);
        leaveFree(1_000_000);
        assert.equal(await runSetup(setups[newer], ...asUpdate, '/CURRENTUSER'), 2);
        assert.equal(versionIn(onDisk, [setups[older]]), older);
        await assertStarted(older);
    });
});

test('a fresh installation for which the disk has no room: 2, and nothing of it is left', async () => {
    await withDisk(async () => {
        leaveFree(1_000_000);
        assert.equal(await runSetup(setups[newer], ...silently, '/CURRENTUSER', there), 2);
        assert.ok(!existsSync(onDisk));
        await assertLeft('/CURRENTUSER', 'none');
    });
});

test('in the wizard, a disk without room: cannot be chosen, 1; runs full after it was chosen: said, 2', async () => {
    await withDisk(async () => {
        await install(older, '/CURRENTUSER', there);
        const before = contentsOf(onDisk);
        leaveFree(1_000_000);
        const scope = [chosen['/CURRENTUSER'], 1];
        const refused = await setupWizard(setups[newer], { scope, folder: [1, cancel] });
        assert.deepEqual(refused.names, ['welcome', 'scope', 'folder', 'quit']);
        assert.equal(refused.code, 1);
        assert.deepEqual(contentsOf(onDisk), before);

        leaveFree(10_000_000);
        const failed = await setupWizard(setups[newer], { scope, folder: [() => leaveFree(1_000_000), 1] });
        assert.deepEqual(failed.names, ['welcome', 'scope', 'folder', 'failed', 'aborted']);
        assert.equal(failed.code, 2);
        assert.deepEqual(contentsOf(onDisk), before);
    });
});

// Every file can be written but one cannot be moved, which shows when others have been replaced.
test('a file that cannot be replaced after all: 2, and every old file is back', async () => {
    await install(older, '/ALLUSERS');
    const { folder, windowsFolder } = scopes['/ALLUSERS'];
    const before = contentsOf(folder);
    for (const name of ['Ravelin.exe', 'ui\\index.html', 'THIRD-PARTY.txt', 'Uninstall.exe']) {
        await probe.send('keep', `${windowsFolder}\\${name}`);
        try {
            assert.equal(await runSetup(setups[newer], ...silently, '/ALLUSERS'), 2, name);
        } finally {
            await probe.send('release');
        }
        assert.deepEqual(contentsOf(folder), before, name);
    }
    await assertLeft('/ALLUSERS', older);
});

/** As a replacement leaves it that was cut off after so many files: by a loss of power, say. */
function cutOffAfter(count, folder) {
    const files = installed.filter((name) => name !== 'Uninstall.exe');
    files.forEach((name, index) => {
        const fresh = path.join(folder, 'Setup.new', name), old = path.join(folder, 'Setup.old', name), place = path.join(folder, name);
        for (const file of [fresh, old]) mkdirSync(path.dirname(file), { recursive: true });
        if (index < count) {
            renameSync(place, old);
            cpSync(path.join(setups[newer].program, name), place);
        } else {
            cpSync(path.join(setups[newer].program, name), fresh);
        }
    });
}

test('a replacement that was cut off is undone by the next run that fails, and done by one that does not', async () => {
    await install(older, '/ALLUSERS');
    const { folder, windowsFolder } = scopes['/ALLUSERS'];
    const before = contentsOf(folder);
    for (const count of [1, 3, 6]) {
        cutOffAfter(count, folder);
        await probe.send('hold', `${windowsFolder}\\Uninstall.exe`);
        try {
            assert.equal(await runSetup(setups[run], ...silently, '/ALLUSERS'), 2);
        } finally {
            await probe.send('release');
        }
        assert.deepEqual(contentsOf(folder), before, `after ${count} files`);
    }
    cutOffAfter(3, folder);
    assert.equal(await runSetup(setups[run], ...silently, '/ALLUSERS'), 0);
    await assertLeft('/ALLUSERS', run);
});
