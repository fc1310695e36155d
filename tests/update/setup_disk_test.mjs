// Setup on a disk that runs full, and with files that cannot be replaced: all of them or none.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { cpSync, existsSync, mkdirSync, renameSync, rmSync, statfsSync, statSync, symlinkSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test from 'node:test';
import { prefix, runToEnd, scratch } from '../e2e/lib/wine.mjs';
import { asUpdate, contentsOf, filesIn, installed, runSetup, scopes, silently, versionIn } from './lib/setup.mjs';
import { assertLeft, assertStarted, install, made, newer, older, recorded, run, useSetups } from './lib/setup_runs.mjs';
import { cancel, chosen, setupWizard } from './lib/wizard.mjs';

useSetups();

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

const sizeOf = (...files) => files.reduce((sum, file) => sum + statSync(path.join(made[newer].program, file)).size, 0);

test('a disk that runs full anywhere in the middle keeps every old file, and one that does not gets every new one', async () => {
    await withDisk(async () => {
        await install(older, '/CURRENTUSER', there);
        const before = contentsOf(onDisk);
        assert.equal(versionIn(onDisk, [made[older]]), older);
        const first = sizeOf('Ravelin.exe');
        const rest = sizeOf('libwebview.dll', 'ui/index.html', 'ui/vendor/Sortable.min.js', 'LICENSE.txt', 'THIRD-PARTY.txt');
        // Before, in and after the first file, in the last one, and in the uninstaller.
        for (const free of [0, first / 2, first + 20_000, first + rest - 20_000, first + rest + 100_000]) {
            leaveFree(free);
            assert.equal(await runSetup(made[newer], ...silently, '/CURRENTUSER'), 2, `with ${free} bytes`);
            assert.deepEqual(contentsOf(onDisk), before, `with ${free} bytes`);
            assert.equal(await recorded('/CURRENTUSER'), made[older].version);
        }
        leaveFree(first + rest + 4_000_000);
        assert.equal(await runSetup(made[newer], ...silently, '/CURRENTUSER'), 0);
        assert.equal(versionIn(onDisk, [made[newer]]), newer);
        assert.deepEqual(filesIn(onDisk), installed);
        assert.equal(await recorded('/CURRENTUSER'), made[newer].version);
    });
});

test('an update for which the disk has no room: 2, and the old version is started', async () => {
    await withDisk(async () => {
        await install(older, '/CURRENTUSER', there);
        leaveFree(1_000_000);
        assert.equal(await runSetup(made[newer], ...asUpdate, '/CURRENTUSER'), 2);
        assert.equal(versionIn(onDisk, [made[older]]), older);
        await assertStarted(older);
    });
});

test('a fresh installation for which the disk has no room: 2, and nothing of it is left', async () => {
    await withDisk(async () => {
        leaveFree(1_000_000);
        assert.equal(await runSetup(made[newer], ...silently, '/CURRENTUSER', there), 2);
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
        const refused = await setupWizard(made[newer], { scope, folder: [1, cancel] });
        assert.deepEqual(refused.names, ['welcome', 'scope', 'folder', 'quit']);
        assert.equal(refused.code, 1);
        assert.deepEqual(contentsOf(onDisk), before);

        leaveFree(10_000_000);
        const failed = await setupWizard(made[newer], { scope, folder: [() => leaveFree(1_000_000), 1] });
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
        await made.probe.send('keep', `${windowsFolder}\\${name}`);
        try {
            assert.equal(await runSetup(made[newer], ...silently, '/ALLUSERS'), 2, name);
        } finally {
            await made.probe.send('release');
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
            cpSync(path.join(made[newer].program, name), place);
        } else {
            cpSync(path.join(made[newer].program, name), fresh);
        }
    });
}

test('a replacement that was cut off is undone by the next run that fails, and done by one that does not', async () => {
    await install(older, '/ALLUSERS');
    const { folder, windowsFolder } = scopes['/ALLUSERS'];
    const before = contentsOf(folder);
    for (const count of [1, 3, 6]) {
        cutOffAfter(count, folder);
        await made.probe.send('hold', `${windowsFolder}\\Uninstall.exe`);
        try {
            assert.equal(await runSetup(made[run], ...silently, '/ALLUSERS'), 2);
        } finally {
            await made.probe.send('release');
        }
        assert.deepEqual(contentsOf(folder), before, `after ${count} files`);
    }
    cutOffAfter(3, folder);
    assert.equal(await runSetup(made[run], ...silently, '/ALLUSERS'), 0);
    await assertLeft('/ALLUSERS', run);
});
