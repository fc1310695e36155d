// Recording real input in another program and playing it back there.
import assert from 'node:assert/strict';
import path from 'node:path';
import test, { after, before, beforeEach } from 'node:test';
import { clickOnPage } from './lib/pointer.mjs';
import { Ravelin } from './lib/ravelin.mjs';
import { Witness } from './lib/witness.mjs';
import { dataFolder, screenshot, textOf, until, xdotool } from './lib/wine.mjs';

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
    await page.evaluate(() => window.updateSpammer('0,0,0,100,0,0,1,10,0'));
    await page.evaluate(() => window.updateKeySpam('0,0,0,100,1,10'));
    await witness.focus();
});

const untilState = (state) => ravelin.untilStatus((status) => status.state === state, `the state ${state}`);

async function record(act) {
    await xdotool('key', 'F8');
    await untilState('Recording');
    witness.mark();
    await act();
    await xdotool('key', 'F8');
    return await untilState('Idle');
}

/** Plays the macro to its end and gives all that arrived, at least `count` events. */
async function play(count) {
    await witness.point(-80, 60);
    witness.mark();
    await xdotool('key', 'F7');
    await settled(count);
    await untilState('Idle');
    // A key by hand arrives behind everything that was played.
    await xdotool('key', 'z');
    const behind = ({ kind, a }) => kind.startsWith('key-') && a === 90;
    await until(() => witness.fresh('key-up').some(behind), 'the key behind the macro');
    return deeds().filter((line) => !behind(line));
}

/** Stops the clicker with its hotkey, and waits until all that a stop sends has arrived. */
async function stopClicker() {
    await witness.seeStop(() => xdotool('key', 'F6'));
    await ravelin.untilStatus((status) => !status.autoClicking, 'the clicker to stop');
}

/** The macro as the next background save writes it: [{ kind, time, x, y, flags, vk, down, wheel }]. */
async function savedMacro(count) {
    const names = ['kind', 'time', 'x', 'y', 'flags', 'vk', 'down', 'wheel'];
    return await until(() => {
        const lines = (textOf(path.join(dataFolder(), 'session.dat')) ?? '').split('\r\n').filter((line) => /^\d,/.test(line));
        return lines.length === count && lines.map((line) => Object.fromEntries(line.split(',').map((field, i) => [names[i], Number(field)])));
    }, `${count} events in the session file`);
}

const isMove = (event) => event.kind === 0;

const deeds = () => witness.fresh().filter((line) => !['move', 'focus'].includes(line.kind));

async function settled(count) {
    await until(() => deeds().length >= count, `${count} events in the other program`);
    return deeds();
}

test('what was done by hand is done again, event by event, none before its time', async () => {
    const status = await record(async () => {
        await witness.point(-40, -30);
        await xdotool('click', 1);
        await witness.point(20, 10);
        await xdotool('mousedown', 3);
        await witness.point(50, 30);
        await xdotool('mouseup', 3);
        await xdotool('click', 4);
        await xdotool('click', 5);
        await settled(6);
        await new Promise((resolve) => setTimeout(resolve, 2200)); // a pause that playback has to keep
        await xdotool('key', 'a');
        await xdotool('keydown', 'shift');
        await xdotool('key', 'b');
        await xdotool('keyup', 'shift');
        await xdotool('click', 2);
        await settled(14);
    });
    const byHand = deeds();
    const macro = (await savedMacro(status.count)).filter((event) => !isMove(event));
    assert.equal(macro.length, byHand.length);
    assert.ok(macro[6].time - macro[5].time > 2, 'the pause is recorded');

    // The last thing that arrives before the start of the playback.
    await witness.point(0, 20);
    const start = witness.of('move').at(-1).time;
    const played = await play(byHand.length);
    assert.deepEqual(played.map((line) => line.kind), byHand.map((line) => line.kind));
    byHand.forEach((line, i) => {
        const again = played[i];
        if (/down|up/.test(line.kind) && !line.kind.startsWith('key')) {
            assert.ok(Math.abs(again.a - line.a) <= 1 && Math.abs(again.b - line.b) <= 1, `${line.kind} at ${again.a},${again.b}`);
        } else {
            assert.deepEqual([again.a, again.b], [line.a, line.b], line.kind);
        }
        const passed = again.time - start;
        assert.ok(passed >= macro[i].time, `${line.kind} ${i} comes ${passed} s after the start, its time is ${macro[i].time} s`);
    });
    // How late the events of a quiet machine are is for the benchmark to say.
    const span = (lines) => lines.at(-1).time - lines[0].time;
    assert.ok(span(played) <= 1.5 * span(macro) + 1, `${span(played)} s for ${span(macro)} s`);
});

test('the hotkeys that begin and end a recording are not part of it', async () => {
    const { count } = await record(async () => {
        await xdotool('key', 'c');
        await settled(2);
    });
    assert.deepEqual((await savedMacro(count)).map(({ kind, vk, down }) => [kind, vk, down]), [[3, 67, 1], [3, 67, 0]]);
    const played = await play(2);
    assert.deepEqual(played.map((line) => [line.kind, line.a]), [['key-down', 67], ['key-up', 67]]);
    assert.equal((await ravelin.statusNow()).state, 'Idle');
});

test('clicks on the program\'s own window are not recorded', async () => {
    await page.evaluate(() => {
        window.clicks = 0;
        addEventListener('mouseup', () => window.clicks++, true);
    });
    const { count } = await record(async () => {
        await clickOnPage(page, { x: 200, y: 300 });
        await until(() => page.evaluate(() => window.clicks === 1), 'the click on the own window');
        await witness.point();
        await xdotool('click', 1);
        await settled(2);
    });
    const clicks = (await savedMacro(count)).filter((event) => event.kind === 2).map(({ x, y, flags }) => [x, y, flags]);
    assert.deepEqual(clicks, [[witness.center.x, witness.center.y, 2], [witness.center.x, witness.center.y, 4]]);
});

test('tools switched while recording are switched again by the macro', async () => {
    await page.evaluate(() => window.removeKeySpamTarget('0'));
    await page.evaluate(() => window.reassignKey('keyspamtarget'));
    await ravelin.untilStatus((status) => status.reassigning === 'keyspamtarget', 'the capture');
    await xdotool('key', 'k');
    await ravelin.untilStatus((status) => status.keySpamTargets.length === 1, 'the target');
    await record(async () => {
        await xdotool('key', 'F6');
        await until(() => witness.fresh('left-down').length >= 3, 'the clicker');
        await stopClicker();
        await xdotool('key', 'F9');
        await until(() => witness.fresh('key-down').length >= 3, 'the key spammer');
        await xdotool('key', 'F9');
        await ravelin.untilStatus((status) => !status.keySpamming, 'the key spammer to stop');
    });
    await screenshot('macro-recorded');
    await witness.seeStop(() => play(2));
    await until(() => witness.fresh('left-down').length >= 2, 'the clicker to run again');
    await until(() => witness.fresh('key-down').filter((line) => line.a === 75).length >= 2, 'the key spammer to run again');
    await ravelin.untilStatus((now) => !now.autoClicking && !now.keySpamming && now.state === 'Idle', 'everything to rest');
});

test('F10 in the middle of playback stops everything', async () => {
    await record(async () => {
        await xdotool('key', 'd');
        await settled(2);
        await xdotool('key', 'F6');
        await until(() => witness.fresh('left-down').length >= 20, 'two seconds of clicking');
        await stopClicker();
        await xdotool('key', 'e');
        await until(() => witness.fresh('key-up').some((line) => line.a === 69), 'the last key');
    });
    await witness.point();
    witness.mark();
    await xdotool('key', 'F7');
    await ravelin.untilStatus((status) => status.state === 'Playing' && status.autoClicking, 'playback with the clicker');
    await witness.seeStop(() => xdotool('key', 'F10'));
    await ravelin.untilStatus((status) => status.state === 'Idle' && !status.autoClicking && !status.unlocked, 'everything to stop');
    assert.equal(witness.fresh('key-down').filter((line) => line.a === 69).length, 0);
    await xdotool('key', 'F10');
    await ravelin.untilStatus((status) => status.unlocked, 'the lock to open');
});

test('the play hotkey does nothing while recording, and the record hotkey nothing while playing', async () => {
    await record(async () => {
        await xdotool('key', 'F7');
        await xdotool('key', 'g');
        await settled(2);
        assert.equal((await ravelin.statusNow()).state, 'Recording');
        await xdotool('keydown', 'h');
        await until(() => witness.fresh('key-down').length === 2, 'the second key');
        await new Promise((resolve) => setTimeout(resolve, 1500)); // a macro that lasts
        await xdotool('keyup', 'h');
    });
    witness.mark();
    await xdotool('key', 'F7');
    await untilState('Playing');
    const { count } = await ravelin.statusNow();
    await xdotool('key', 'F8');
    const status = await untilState('Idle');
    assert.equal(status.count, count);
});
