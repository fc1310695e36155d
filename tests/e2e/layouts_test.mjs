// Keyboards of other countries: keys are named as the system names them, and hotkeys by real keys work.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import test, { after, afterEach } from 'node:test';
import { Ravelin } from './lib/ravelin.mjs';
import { systemKeys } from './lib/system.mjs';
import { Witness } from './lib/witness.mjs';
import { until, xdotool } from './lib/wine.mjs';

const setLayout = (layout) => execFileSync('setxkbmap', ['-layout', layout]);
const layoutNow = () => execFileSync('setxkbmap', ['-query'], { encoding: 'utf8' }).match(/^layout: +(\S+)/m)[1];
const original = layoutNow();

// Whatever happens: the display is shared with every test after this one.
process.on('exit', () => setLayout(original));
for (const signal of ['SIGINT', 'SIGTERM', 'SIGHUP']) process.on(signal, () => process.exit(1));

let ravelin;
let witness;

afterEach(async () => {
    try {
        await witness?.close();
        await ravelin?.closeOrKill();
    } finally {
        witness = ravelin = undefined;
    }
});
after(() => setLayout(original));

/** Captures one real key, given by its place on the keyboard, for that slot. */
async function capture(page, slot, place) {
    await page.evaluate((name) => window.reassignKey(name), slot);
    await ravelin.untilStatus((status) => status.reassigning === slot, `the slot ${slot} to be armed`);
    await xdotool('key', place);
    return await ravelin.untilStatus((status) => status.reassigning === '', 'the capture to end');
}

// X counts keys by their place: on an American keyboard these are Q, Z, [, ; and -.
const places = [24, 52, 34, 47, 20];
