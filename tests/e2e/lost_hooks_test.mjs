// Hooks that Windows removes behind the program's back come back, and the page says so.
import assert from 'node:assert/strict';
import test, { after, before } from 'node:test';
import { Ravelin } from './lib/ravelin.mjs';
import { systemTool } from './lib/system.mjs';
import { until, xdotool } from './lib/wine.mjs';
import { Witness } from './lib/witness.mjs';

let ravelin;
let page;
let witness;

before(async () => {
    ravelin = await Ravelin.open();
    page = await ravelin.page();
    witness = await Witness.open();
    await witness.focus();
});

after(async () => {
    await witness?.close();
    await ravelin?.closeOrKill();
});

test('hotkeys work again after the hooks were removed, and a sentence tells of it', async () => {
    await page.evaluate(() => window.updateSpammer('0,0,5,0,0,0,1,10,0'));
    const sentence = page.getByText('Windows had stopped passing keys and clicks on to Ravelin.');
    assert.equal(await sentence.count(), 0);
    assert.ok(Number(await systemTool('remove-hooks')) >= 2);
    await xdotool('key', 'F6');
    assert.equal((await ravelin.statusNow()).autoClicking, false, 'a hook is left');
    // Keys that reach another program and no hook.
    await until(async () => {
        await xdotool('key', 'a');
        return (await sentence.count()) > 0;
    }, 'the sentence');
    await page.getByText('Hotkeys work again.').waitFor();
    await xdotool('key', 'F6');
    await ravelin.untilStatus((status) => status.autoClicking, 'the clicker to run');
    await witness.seeStop(() => xdotool('key', 'F6'));
    await ravelin.untilStatus((status) => !status.autoClicking, 'the clicker to stop');
});
