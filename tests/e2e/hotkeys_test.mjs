// Reassigning hotkeys with real keys and mouse buttons.
import assert from 'node:assert/strict';
import test, { after, before, beforeEach } from 'node:test';
import { Ravelin } from './lib/ravelin.mjs';
import { Witness } from './lib/witness.mjs';
import { screenshot, until, xdotool } from './lib/wine.mjs';

let ravelin;
let page;
let witness;

before(async () => {
    ravelin = await Ravelin.open();
    page = await ravelin.page();
    witness = await Witness.open();
});

after(async () => {
    await witness?.close();
    assert.equal(await ravelin?.close(), 0);
});

beforeEach(async () => {
    await page.evaluate(() => window.resetHotkeys());
    await page.evaluate(() => window.updateSpammer('0,0,0,50,0,0,1,10,0'));
    await witness.focus();
});

async function arm(slot) {
    await page.evaluate((name) => window.reassignKey(name), slot);
    await ravelin.untilStatus((status) => status.reassigning === slot, `the slot ${slot} to be armed`);
}

async function disarmed() {
    return await ravelin.untilStatus((status) => status.reassigning === '', 'the capture to end');
}

test('the page shows that it waits for a key', async () => {
    await page.locator('#panel-spammer').getByRole('button', { name: /change/i }).click();
    await ravelin.untilStatus((status) => status.reassigning === 'auto', 'the slot to be armed');
    await page.getByText(/press a key/i).first().waitFor();
    await screenshot('hotkey-capture');
    await xdotool('key', 'Escape');
    await disarmed();
});

test('a key becomes the new hotkey, works, and hides from the program in front', async () => {
    await arm('auto');
    await xdotool('key', 'F4');
    const status = await disarmed();
    assert.equal(status.hkAuto, 'F4');
    await xdotool('key', 'F4');
    await ravelin.untilStatus((now) => now.autoClicking, 'the clicker to run');
    await witness.seeStop(() => xdotool('key', 'F4'));
    await ravelin.untilStatus((now) => !now.autoClicking, 'the clicker to stop');
    await xdotool('key', 'F6');
    await until(() => witness.fresh('key-up').some((line) => line.a === 117), 'F6 to be an ordinary key');
    // The captured press is hidden; its release, which no hotkey hid, is seen like any other.
    assert.equal(witness.fresh('key-down').filter((line) => line.a === 115).length, 0);
});

test('Esc leaves the hotkey as it was', async () => {
    await arm('auto');
    await xdotool('key', 'Escape');
    assert.equal((await disarmed()).hkAuto, 'F6');
    assert.equal(witness.fresh('key-down').filter((line) => line.a === 27).length, 0);
});

test('a mouse button becomes a hotkey', async () => {
    await arm('rec');
    await xdotool('click', 2);
    assert.equal((await disarmed()).hkRec, 'Middle Mouse');
    await until(() => witness.fresh('middle-up').length === 1, 'the release of the button');
    assert.equal(witness.fresh('middle-down').length, 0);
});

test('the left button never becomes the unlock key: the click passes and the slot stays armed', async () => {
    await arm('unlock');
    await xdotool('click', 1);
    await until(() => witness.fresh('left-up').length === 1, 'the click to pass');
    assert.equal((await ravelin.statusNow()).reassigning, 'unlock');
    await xdotool('key', 'F3');
    assert.equal((await disarmed()).hkUnlock, 'F3');
});
