// Setup without its wizard, by itself and as an update: the exit code of every kind of run, what is left
// on the machine and what runs afterwards.
import assert from 'node:assert/strict';
import { copyFileSync, rmSync } from 'node:fs';
import path from 'node:path';
import test from 'node:test';
import { prefix, runToEnd, scratch, textOf, toolFolder, windowsPath, within } from '../e2e/lib/wine.mjs';
import { windowState } from '../e2e/lib/windows.mjs';
import { asUpdate, contentsOf, runSetup, scopes, silently, versionIn } from './lib/setup.mjs';
import { assertLeft, assertNothingStarted, assertStarted, install, kind, made, newer, older, open, run, titles, useSetups } from './lib/setup_runs.mjs';

const quietly = silently.filter((word) => word !== '/CLOSEAPPLICATIONS');

useSetups();

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
const way = new Map([[silently, 'silently'], [asUpdate, 'as an update']]);

for (const scope of Object.keys(scopes)) {
    const [other] = Object.keys(scopes).filter((name) => name !== scope);

    for (const [over, switches, code, leaves, starts] of unattended) {
        test(`${scope} over ${kind[over]}, ${way.get(switches)}: ${code}`, async () => {
            await install(over, scope);
            assert.equal(await runSetup(made[run], ...switches, scope), code);
            await assertLeft(scope, leaves);
            await assertLeft(other, 'none');
            if (starts) await assertStarted(starts);
            else await assertNothingStarted();
        });
    }

    test(`${scope} over the record of a newer version that was deleted by hand, as an update: 0`, async () => {
        await install(newer, scope);
        rmSync(scopes[scope].folder, { recursive: true });
        assert.equal(await runSetup(made[run], ...asUpdate, scope), 0);
        await assertLeft(scope, run);
    });

    test(`${scope} over a running version, silently: closes it, 0`, async () => {
        await install(older, scope);
        const running = await open(scope);
        assert.equal(await runSetup(made[run], ...silently, scope), 0);
        assert.equal(await within(30_000, running.exited, 'the old version to end'), 0);
        await assertLeft(scope, run);
        await assertNothingStarted();
    });

    test(`${scope} over a running version, as an update: closes it and starts the new one, 0`, async () => {
        await install(older, scope);
        const running = await open(scope);
        assert.equal(await runSetup(made[run], ...asUpdate, scope), 0);
        assert.equal(await within(30_000, running.exited, 'the old version to end'), 0);
        await assertLeft(scope, run);
        await assertStarted(run);
    });

    test(`${scope} over a running version, silently without leave to close it: 2`, async () => {
        await install(older, scope);
        await open(scope);
        assert.equal(await runSetup(made[run], ...quietly, scope), 2);
        await assertLeft(scope, older);
        assert.notEqual(await windowState(titles[older]), null, 'it still runs');
    });

    test(`${scope} as an update over a version with a file in use: 2, and the old version is started`, async () => {
        await install(older, scope);
        const before = contentsOf(scopes[scope].folder);
        await made.probe.send('hold', `${scopes[scope].windowsFolder}\\Uninstall.exe`);
        try {
            assert.equal(await runSetup(made[run], ...asUpdate, scope), 2);
        } finally {
            await made.probe.send('release');
        }
        assert.deepEqual(contentsOf(scopes[scope].folder), before);
        await assertLeft(scope, older);
        await assertStarted(older);
    });
}

// A list of processes with room for eight has no place for the one that runs.
test('a running version is found among any number of processes', async () => {
    await install(older, '/ALLUSERS');
    const running = await open('/ALLUSERS');
    assert.equal(await runSetup(made.variant, ...silently, '/ALLUSERS'), 0);
    assert.equal(await within(30_000, running.exited, 'the old version to end'), 0);
    assert.equal(versionIn(scopes['/ALLUSERS'].folder, [made.variant]), newer);
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
            const { code } = await runToEnd(windowsPath(made.variant.file), [...asUpdate, '/ALLUSERS', asUser],
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
    assert.equal(await runSetup(made.variant, ...silently, '/ALLUSERS', asUser), 740 % 256);
    await assertLeft('/ALLUSERS', older);
    await assertNothingStarted();
});

test('for a standard user alone: 0', async () => {
    await install(older, '/CURRENTUSER');
    assert.equal(await runSetup(made.variant, ...asUpdate, '/CURRENTUSER', asUser), 0);
    assert.equal(versionIn(scopes['/CURRENTUSER'].folder, [made.variant]), newer);
    await assertStarted(newer);
});
