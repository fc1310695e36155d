// What the tests of setup's runs share: three versions, of which the one that is run comes between the
// others, and what a run can leave.
import assert from 'node:assert/strict';
import { existsSync, statSync } from 'node:fs';
import { after, before, beforeEach } from 'node:test';
import { Ravelin } from '../../e2e/lib/ravelin.mjs';
import { until } from '../../e2e/lib/wine.mjs';
import { untilWindow, windowTool } from '../../e2e/lib/windows.mjs';
import { Probe } from './probe.mjs';
import { productOf } from './product.mjs';
import { filesIn, installed, makeSetup, registryValue, removeAll, runSetup, scopes, silently, versionIn } from './setup.mjs';

export const older = 'this', run = 'beta', newer = 'next';
export const kind = { none: 'nothing', [older]: 'an older version', [run]: 'the same version', [newer]: 'a newer version' };
export const titles = Object.fromEntries([older, run, newer].map((name) => [name, productOf(name === 'this' ? undefined : name).windowTitle]));

/** Setup programs by these names, one whose users are told by a switch, and the probe. */
export const made = {};

/** For a test file: makes them, and removes what setups have left before each test. */
export function useSetups() {
    before(async () => {
        for (const name of [older, run, newer]) made[name] = makeSetup(name);
        // Its lists of processes have room for eight, which is always too little.
        made.variant = makeSetup(newer, { account: true, options: ['-DMOST_PROCESSES=8'] });
        made.probe = await Probe.open();
        // The desktop that was there before the tests' own ends a moment later, and its shell with it.
        await until(async () => (await made.probe.send('running', 'explorer.exe')).running === 1, 'one shell', 60_000);
    });
    after(async () => {
        if (made.probe) await removeAll(made.probe, made[older]);
        await made.probe?.close();
    });
    beforeEach(() => removeAll(made.probe, made[older]));
}

export async function recorded(scope) {
    return await registryValue(made.probe, scopes[scope].root, made[older].key, 'DisplayVersion');
}

/** This version is in the scope, whole and recorded as itself, or there is nothing at all. */
export async function assertLeft(scope, version) {
    const { folder, shortcut } = scopes[scope];
    const left = {
        files: filesIn(folder),
        version: versionIn(folder, [made[older], made[run], made[newer]]),
        recorded: await recorded(scope),
        shortcut: existsSync(shortcut) && statSync(shortcut).size > 0,
    };
    assert.deepEqual(left, version === 'none'
        ? { files: [], version, recorded: undefined, shortcut: false }
        : { files: installed, version, recorded: made[version].version, shortcut: true });
}

/** The version runs, started by the desktop's shell and by nothing with more rights. */
export async function assertStarted(version) {
    await untilWindow(titles[version], undefined, `version ${version} to be started`, 60_000);
    const process = await windowTool('process', titles[version]);
    assert.deepEqual(await made.probe.send('parent', process), { parent: 'explorer.exe' });
}

export async function assertNothingStarted() {
    assert.equal((await made.probe.send('running', 'Ravelin.exe')).running, 0);
}

export async function install(name, scope, ...switches) {
    if (name !== 'none') assert.equal(await runSetup(made[name], ...silently, scope, ...switches), 0);
}

/** Starts what is installed. */
export async function open(scope) {
    const ravelin = await Ravelin.open({ program: `${scopes[scope].windowsFolder}\\Ravelin.exe` });
    return ravelin.run;
}
