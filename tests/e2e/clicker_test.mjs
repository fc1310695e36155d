// The auto clicker as a user meets it: the page, the hotkeys and another program in front.
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
    await page.evaluate(() => window.updateSpammer('0,0,0,20,0,0,1,10,0'));
});

async function clicking(on) {
    await ravelin.untilStatus((status) => status.autoClicking === on, `the clicker to be ${on ? 'on' : 'off'}`);
}

/** Stops the clicker with its hotkey, and waits until all that a stop sends has arrived. */
async function stopByKey() {
    await witness.seeStop(() => xdotool('key', 'F6'));
    await clicking(false);
}

async function untilClicks(count) {
    await until(() => witness.fresh('left-down').length >= count, `${count} clicks in the other program`);
}

test('F6 starts and stops clicking into the program in front, which never sees the key', async () => {
    await witness.focus();
    await xdotool('key', 'F6');
    await clicking(true);
    await untilClicks(20);
    await stopByKey();
    assert.equal(witness.fresh('key-down').length, 0);
    assert.equal(witness.fresh('key-up').length, 0);
});

test('holding F6 fires once, and its repeats and release stay hidden', async () => {
    await witness.focus();
    await xdotool('keydown', 'F6');
    await clicking(true);
    // Auto-repeat as the display makes it: presses without a release between them.
    for (let i = 0; i < 5; i++) await xdotool('keydown', 'F6');
    await untilClicks(5);
    assert.equal((await ravelin.statusNow()).autoClicking, true);
    await xdotool('keyup', 'F6');
    await xdotool('key', 'a');
    await until(() => witness.fresh('key-up').length === 1, 'an ordinary key to pass');
    assert.deepEqual(witness.fresh('key-down').map((line) => line.a), [65]);
    assert.equal((await ravelin.statusNow()).autoClicking, true);
    await stopByKey();
});

test('the page starts and stops the clicker and shows that it runs', async () => {
    await page.evaluate(() => window.updateSpammer('0,0,0,200,0,0,1,10,0'));
    await page.bringToFront();
    const panel = page.locator('#panel-spammer');
    // By keyboard, so that the cursor stays where clicks do no harm.
    await witness.focus();
    await page.evaluate(() => window.startSpammer());
    await clicking(true);
    await panel.getByRole('button', { name: /stop/i }).first().waitFor();
    await screenshot('clicker-running');
    await witness.seeStop(() => page.evaluate(() => window.stopSpammer()));
    await clicking(false);
    await panel.getByRole('button', { name: /start/i }).first().waitFor();
});

test('a count ends the run by itself, and a new start counts anew', async () => {
    await page.evaluate(() => window.updateSpammer('0,0,0,20,0,0,0,3,0'));
    for (let run = 0; run < 2; run++) {
        await witness.focus();
        await xdotool('key', 'F6');
        await until(() => witness.fresh('left-up').length === 3, 'three clicks');
        await clicking(false);
        assert.equal(witness.fresh('left-down').length, 3);
    }
});

test('double clicks and the right button arrive as such', async () => {
    await page.evaluate(() => window.updateSpammer('0,0,0,50,1,1,0,2,0'));
    await witness.focus();
    await xdotool('key', 'F6');
    await until(() => witness.fresh('right-up').length === 4, 'two double clicks of the right button');
    await clicking(false);
    assert.equal(witness.fresh('left-down').length, 0);
});

test('F10 locks the hotkeys, stops the clicker, and unlocks again', async () => {
    await witness.focus();
    await xdotool('key', 'F6');
    await clicking(true);
    await witness.seeStop(() => xdotool('key', 'F10'));
    await ravelin.untilStatus((status) => !status.unlocked && !status.autoClicking, 'the lock to engage');
    await screenshot('clicker-locked');
    witness.mark();
    await xdotool('key', 'F6');
    await until(() => witness.fresh('key-up').some((line) => line.a === 117), 'F6 to reach the other program');
    assert.equal((await ravelin.statusNow()).autoClicking, false);
    assert.equal(witness.fresh('key-down').filter((line) => line.a === 121).length, 0);
    await xdotool('key', 'F10');
    await ravelin.untilStatus((status) => status.unlocked, 'the lock to open');
    await xdotool('key', 'F6');
    await clicking(true);
    await stopByKey();
});

test('a location is picked by a real click, which reaches nobody else', async () => {
    await witness.focus();
    await witness.point(30, 20);
    await page.evaluate(() => window.pickLocation());
    await xdotool('click', 1);
    const settings = await until(async () => {
        const now = JSON.parse(await page.evaluate(async () => JSON.stringify(await window.getSettings())));
        return now.locMode === 1 && now;
    }, 'the point to be taken');
    assert.deepEqual([settings.fixedX, settings.fixedY], [witness.center.x + 30, witness.center.y + 20]);
    await xdotool('key', 'b');
    await until(() => witness.fresh('key-up').length === 1, 'a key behind the click');
    assert.equal(witness.fresh('left-down').length, 0);

    await witness.point(-30);
    await page.evaluate(() => window.pickLocation());
    await xdotool('click', 3);
    await xdotool('key', 'c');
    await until(() => witness.fresh('key-up').length === 2, 'a key behind the cancelling click');
    const after = JSON.parse(await page.evaluate(async () => JSON.stringify(await window.getSettings())));
    assert.deepEqual([after.fixedX, after.fixedY], [settings.fixedX, settings.fixedY]);
    assert.equal(witness.fresh('right-down').length, 0);
});

test('a fixed point is clicked wherever the cursor was', async () => {
    const at = { x: witness.center.x + 50, y: witness.center.y + 60 }; // not where it was before
    await witness.focus();
    await witness.point(50, 60);
    await page.evaluate(() => window.pickLocation());
    await xdotool('click', 1);
    await until(async () => (await page.evaluate(() => window.getSettings())).fixedX === at.x, 'the point');
    // The press alone is the pick; its release passes.
    await until(() => witness.fresh('left-up').length === 1, 'the release of the picking click');
    witness.mark();
    await page.evaluate(() => window.updateSpammer('0,0,0,20,0,0,0,2,1'));
    await witness.point(-60, -40);
    await xdotool('key', 'F6');
    await until(() => witness.fresh('left-up').length >= 2, 'two clicks');
    await clicking(false);
    assert.equal(witness.fresh('left-up').length, 2);
    // Absolute moves travel in 65536ths of the screen, truncated on both ways: a pixel may be lost.
    for (const line of witness.fresh('left-down')) {
        assert.ok(Math.abs(line.a - (at.x - witness.origin.x)) <= 1, `x ${line.a}`);
        assert.ok(Math.abs(line.b - (at.y - witness.origin.y)) <= 1, `y ${line.b}`);
    }
});
