// Setup in its wizard: the exit code of every way through it, and what is left on the machine.
import assert from 'node:assert/strict';
import test from 'node:test';
import { within } from '../e2e/lib/wine.mjs';
import { windowState } from '../e2e/lib/windows.mjs';
import { scopes, versionIn } from './lib/setup.mjs';
import { assertLeft, assertNothingStarted, assertStarted, install, kind, made, newer, older, open, run, titles, useSetups } from './lib/setup_runs.mjs';
import { cancel, chosen, no, setupWizard } from './lib/wizard.mjs';

useSetups();

// For whom; over what; what is answered; the exit code, what is left and what was shown.
const everyone = '/ALLUSERS', user = '/CURRENTUSER';
const attended = [
    [everyone, 'none', {}, 0, run, ['welcome', 'scope', 'folder', 'finish']],
    [everyone, older, {}, 0, run, ['welcome', 'scope', 'folder', 'finish']],
    [everyone, newer, { newer: [no, cancel] }, 1, newer, ['welcome', 'scope', 'folder', 'newer', 'quit']],
    [everyone, older, { welcome: [cancel] }, 1, older, ['welcome', 'quit']],
    [user, 'none', {}, 0, run, ['welcome', 'scope', 'folder', 'finish']],
    [user, newer, {}, 0, run, ['welcome', 'scope', 'folder', 'newer', 'finish']],
    [user, 'none', { folder: [cancel] }, 1, 'none', ['welcome', 'scope', 'folder', 'quit']],
];

for (const [scope, over, answers, code, leaves, pages] of attended) {
    test(`${scope} over ${kind[over]}, answered with ${JSON.stringify(answers)}: ${code}`, async () => {
        await install(over, scope);
        const { code: actual, names } = await setupWizard(made[run], { scope: [chosen[scope], 1], ...answers });
        assert.deepEqual([...new Set(names.filter((name) => name !== 'runtime'))], pages);
        assert.equal(actual, code);
        await assertLeft(scope, leaves);
        await assertNothingStarted();
    });
}

test('over a running version, in the wizard with leave to close it: 0', async () => {
    await install(older, '/ALLUSERS');
    const running = await open('/ALLUSERS');
    const { code, names } = await setupWizard(made[run]);
    assert.equal(code, 0);
    assert.ok(names.includes('running'));
    assert.equal(await within(30_000, running.exited, 'the old version to end'), 0);
    await assertLeft('/ALLUSERS', run);
});

test('over a running version, in the wizard without leave to close it: 1', async () => {
    await install(older, '/ALLUSERS');
    await open('/ALLUSERS');
    const { code, names } = await setupWizard(made[run], { running: [cancel] });
    assert.ok(names.includes('running'));
    assert.equal(code, 1);
    await assertLeft('/ALLUSERS', older);
    assert.notEqual(await windowState(titles[older]), null, 'it still runs');
});

test('the wizard starts the program by the shell as well', async () => {
    const { code } = await setupWizard(made[run], { finish: [1] });
    assert.equal(code, 0);
    await assertStarted(run);
});

test('a standard user is not asked for whom to install', async () => {
    const { code, names } = await setupWizard(made.variant, {}, { args: ['/ACCOUNT=User'] });
    assert.equal(code, 0);
    assert.ok(!names.includes('scope'), names.join());
    assert.equal(versionIn(scopes['/CURRENTUSER'].folder, [made.variant]), newer);
});
