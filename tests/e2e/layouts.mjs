// Keyboards of other countries: keys have the names and places that the system gives them, and
// hotkeys by real keys work. Run by hand: Wine sometimes tells two programs different names for a key
// right after the layout was changed.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import test, { after, afterEach } from 'node:test';
import { Ravelin } from './lib/ravelin.mjs';
import { systemKeys } from './lib/system.mjs';
import { until, xdotool } from './lib/wine.mjs';
import { Witness } from './lib/witness.mjs';

const setLayout = (layout) => execFileSync('setxkbmap', ['-layout', layout]);
const original = execFileSync('setxkbmap', ['-query'], { encoding: 'utf8' }).match(/^layout: +(\S+)/m)[1];

// Whatever happens: the display is shared with every test after this one.
process.on('exit', () => setLayout(original));
for (const signal of ['SIGINT', 'SIGTERM', 'SIGHUP']) process.on(signal, () => process.exit(1));
after(() => setLayout(original));

let ravelin;
let page;
let witness;

afterEach(async () => {
    try {
        await witness?.close();
        await ravelin?.closeOrKill();
    } finally {
        witness = ravelin = undefined;
        setLayout(original);
    }
});

/** The program and another one, both started under this layout. */
async function open(layout) {
    setLayout(layout);
    ravelin = await Ravelin.open();
    page = await ravelin.page();
    witness = await Witness.open();
    await witness.focus();
}

/** Captures a real key, given as X counts the keys of a keyboard; gives the status after it. */
async function capture(slot, place) {
    await page.evaluate((name) => window.reassignKey(name), slot);
    await ravelin.untilStatus((status) => status.reassigning === slot, `the slot ${slot} to be armed`);
    await xdotool('key', place);
    return await ravelin.untilStatus((status) => status.reassigning === '', 'the capture to end');
}

/** The code of the key at that place, as another program gets it. */
async function codeOf(place) {
    witness.mark();
    await xdotool('key', place);
    return (await until(() => witness.fresh('key-up')[0], `the key at ${place}`)).a;
}

// On an American keyboard these are Y, the apostrophe and the semicolon. None of them is a dead key in
// any of the layouts: the display's input method keeps the first press of one from every program.
const places = [29, 48, 47];

for (const layout of ['de', 'fr', 'ru']) {
    test(`${layout}: hotkeys and targets are named as the system names them, and work`, async (context) => {
        await open(layout);
        const codes = [];
        for (const place of places) codes.push(await codeOf(place));
        const names = await systemKeys(...codes);
        context.diagnostic(JSON.stringify(names));
        for (const [i, place] of places.entries()) {
            const status = await capture('auto', place);
            assert.equal(status.hkAuto, names[codes[i]].name);
            await page.getByText(names[codes[i]].name, { exact: true }).first().waitFor();
        }
        await xdotool('key', places.at(-1));
        await ravelin.untilStatus((status) => status.autoClicking, 'the clicker to run');
        await witness.seeStop(() => xdotool('key', places.at(-1)));
        await ravelin.untilStatus((status) => !status.autoClicking, 'the clicker to stop');

        const target = await capture('keyspamtarget', places[0]);
        assert.equal(target.keySpamTargets.at(-1), names[codes[0]].name);
        await page.locator('#panel-keyspam').getByText(names[codes[0]].name, { exact: true }).first().waitFor();

        // By its scan code it arrives as the key that was pressed for it, beside the one that was there.
        witness.mark();
        await page.evaluate(() => window.updateKeySpam('0,0,0,50,0,4'));
        await page.evaluate(() => window.startKeySpam());
        const pressed = await until(() => {
            const keys = witness.fresh('key-down').map((line) => line.a);
            return keys.length >= 4 && keys;
        }, 'the keys of the spammer');
        assert.deepEqual(pressed, [32, codes[0], 32, codes[0]]);
    });
}
