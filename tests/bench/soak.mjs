// The real program at work for a long time: does anything grow, does anything slow down?
//
//   node tests/bench/soak.mjs [MINUTES]
//
// Every minute the same: the clicker at 1 ms with the key spammer, a recording, a macro played in a
// loop, another profile, a panel torn off and brought back. At the end of each, with everything at
// rest, what the process uses.
import { fstatSync, mkdirSync, openSync, readdirSync, readFileSync, readSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import { clicker, detachByButton, shown, untilGone } from '../e2e/lib/panels.mjs';
import { Ravelin, windowTitle } from '../e2e/lib/ravelin.mjs';
import { windowTool } from '../e2e/lib/windows.mjs';
import { clearDataFolder, dataFolder, prefix, xdotool } from '../e2e/lib/wine.mjs';
import { Witness } from '../e2e/lib/witness.mjs';

const minutes = Number(process.argv[2] ?? 10);
const keyEvery = 0.02;
const keysAPass = 100;

const pause = (seconds) => new Promise((done) => setTimeout(done, seconds * 1000));
const sorted = (values) => [...values].sort((a, b) => a - b);
const quantile = (values, q) => sorted(values)[Math.min(values.length - 1, Math.floor(values.length * q))];

/** A macro of one key every 20 ms, so that every event's moment is known; played in a loop. */
function writeSession() {
    clearDataFolder();
    mkdirSync(dataFolder(), { recursive: true });
    const events = Array.from({ length: keysAPass }, (_, i) => `3,${(i * keyEvery).toFixed(2)},0,0,0,77,${1 - (i % 2)},0`);
    writeFileSync(path.join(dataFolder(), 'session.dat'), [
        'SETTINGS:0,0,0,1,0,0,1,10,0,0,0,1,1,1,1,0,1,1,0,119,118,0,117,0,0,0,5,1,10,120,75,75,0,0,0,121',
        'CURRENT:0', 'PROFILE:Default Tracking Profile', ...events, 'PROFILE:Recordings', '',
    ].join('\r\n'));
}

/** What the witness writes down from here on, without reading the whole file again. */
class Tail {
    constructor(witness) {
        this.file = openSync(witness.log, 'r');
        this.at = fstatSync(this.file).size;
        this.rest = '';
    }

    lines() {
        const size = fstatSync(this.file).size;
        const bytes = Buffer.alloc(size - this.at);
        this.at += readSync(this.file, bytes, 0, bytes.length, this.at);
        const parts = (this.rest + bytes.toString('latin1')).split('\n');
        this.rest = parts.pop();
        return parts.map((line) => {
            const [time, kind, a] = line.trim().split(' ');
            return { time: Number(time) / 1e6, kind, a: Number(a) };
        });
    }
}

writeSession();
const ravelin = await Ravelin.open({ keepData: true });
const page = await ravelin.page();
const witness = await Witness.open();
const untilState = (state) => ravelin.untilStatus((status) => status.state === state, `the state ${state}`);
const call = (name, ...args) => page.evaluate(([method, values]) => window[method](...values), [name, args]);

/** Clicks and keys a second over ten seconds. */
async function clickAndSpam() {
    await witness.focus();
    await xdotool('key', 'F6');
    await xdotool('key', 'F9');
    await ravelin.untilStatus((status) => status.autoClicking && status.keySpamming, 'both tools to run');
    await pause(2);
    const tail = new Tail(witness);
    await pause(10);
    const lines = tail.lines();
    await xdotool('key', 'F6');
    await xdotool('key', 'F9');
    await ravelin.untilStatus((status) => !status.autoClicking && !status.keySpamming, 'both tools to stop');
    const span = lines.at(-1).time - lines[0].time;
    const rate = (kind) => lines.filter((line) => line.kind === kind).length / span;
    return { clicks: rate('left-down'), keys: rate('key-down') };
}

async function recordAndForget() {
    await call('switchProfile', 1);
    await witness.focus();
    await xdotool('key', 'F8');
    await untilState('Recording');
    for (let i = 0; i < 20; i++) {
        await xdotool('mousemove', witness.center.x - 40 + i * 4, witness.center.y);
        await xdotool('key', 'a');
    }
    await xdotool('click', 1);
    await xdotool('key', 'F8');
    await untilState('Idle');
    await call('switchProfile', 0);
}

/** How late the events of a looped macro arrive after their moments, in milliseconds. */
async function playInALoop() {
    await witness.focus();
    const tail = new Tail(witness);
    await xdotool('key', 'F7');
    await untilState('Playing');
    await pause(12);
    await xdotool('key', 'F7');
    await untilState('Idle');
    const keys = tail.lines().filter((line) => line.kind.startsWith('key') && line.a === 77);
    const late = [];
    for (let first = 0; first + keysAPass <= keys.length; first += keysAPass) {
        const pass = keys.slice(first, first + keysAPass);
        pass.forEach((line, i) => late.push((line.time - pass[0].time - i * keyEvery) * 1000));
    }
    return { median: quantile(late, 0.5), p99: quantile(late, 0.99) };
}

async function tearOffAndBringBack() {
    await detachByButton(ravelin, clicker);
    await windowTool('close', clicker.window);
    await untilGone(clicker.window);
    await shown(page, clicker);
}

/** What the system below Wine says of the main process: anonymous memory in use, and threads. */
function memoryAndThreads() {
    for (const id of readdirSync('/proc').filter((name) => /^\d+$/.test(name))) {
        const read = (file) => {
            try {
                return readFileSync(`/proc/${id}/${file}`, 'latin1');
            } catch {
                return ''; // gone, or not ours to read
            }
        };
        const command = read('cmdline');
        if (!/Ravelin\.exe/.test(command) || /--child|start\.exe/.test(command) || !read('environ').includes(`WINEPREFIX=${prefix}\0`)) continue;
        const field = (name) => Number(new RegExp(`^${name}:\\s+(\\d+)`, 'm').exec(read('status'))?.[1]);
        return [field('RssAnon') / 1000, field('Threads')];
    }
    throw new Error('no process of the program');
}

const rows = [];
const columns = ['minute', 'private MB', 'threads', 'handles', 'clicks/s', 'keys/s', 'late ms', 'late p99 ms'];
const text = (cells) => cells.map((cell) => String(cell).padStart(12)).join('');
console.log(text(columns));
const began = Date.now();
for (let minute = 1; minute <= minutes; minute++) {
    const rate = await clickAndSpam();
    await recordAndForget();
    const late = await playInALoop();
    await tearOffAndBringBack();
    await pause(Math.max(0, minute * 60 - (Date.now() - began) / 1000 - 3));
    const row = [minute, ...memoryAndThreads(), Number(await windowTool('handles', windowTitle)), rate.clicks, rate.keys, late.median, late.p99];
    rows.push(row);
    console.log(text(row.map((value) => (Number.isInteger(value) ? value : value.toFixed(2)))));
}
await witness.close();
await ravelin.close();

// The first minute warms everything up. The rest is halved, so that one odd minute tells nothing.
const measured = rows.length > 3 ? rows.slice(1) : rows;
const half = Math.floor(measured.length / 2);
const middle = (part, column) => quantile(part.map((row) => row[column]), 0.5);
const grown = [['private MB', 1.1, 2], ['handles', 1.05, 5], ['threads', 1, 2], ['late ms', 1.5, 1]].filter(([name, factor, slack]) => {
    const column = columns.indexOf(name);
    return middle(measured.slice(half), column) > middle(measured.slice(0, half), column) * factor + slack;
}).map(([name]) => name);
if (middle(measured.slice(half), 4) < middle(measured.slice(0, half), 4) * 0.9) grown.push('clicks/s');
console.log(grown.length > 0 ? `Grown or slowed down: ${grown.join(', ')}` : 'Nothing grew, nothing slowed down.');
process.exit(grown.length > 0 ? 1 : 0);
