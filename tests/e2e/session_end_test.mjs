// The end of the user's session: what is in the program then is on disk before it answers, whenever
// the system ends the process after that.
//
// RAVELIN_ROUNDS and RAVELIN_LONG_ROUNDS set how often; each round says what it did when it fails.
import assert from 'node:assert/strict';
import { mkdirSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test, { afterEach } from 'node:test';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { systemTool } from './lib/system.mjs';
import { clearDataFolder, dataFolder, textOf, until, within } from './lib/wine.mjs';
import { untilWindow, windowState, windowTool } from './lib/windows.mjs';

const rounds = Number(process.env.RAVELIN_ROUNDS ?? 5);
const longRounds = Number(process.env.RAVELIN_LONG_ROUNDS ?? 1);

// Why a session ends: shut-down, log-off, a program in the way of an installer, and by force.
const reasons = [0, 0x80000000, 0x1, 0x40000000];

let ravelin;

afterEach(async () => {
    try {
        await ravelin?.kill();
    } finally {
        ravelin = undefined;
    }
});

const saved = (name) => textOf(path.join(dataFolder(), name));

/** What is set in the program a moment before the end of a round, and where its window stands then. */
async function change(page, round) {
    const interval = 100 + (round % 800);
    const place = { left: 20 + (round % 50), top: 30 + (round % 40), width: 500 + (round % 30), height: 600 + (round % 20) };
    // Without the message that ends a move by the user, which would save it at once.
    await windowTool('place', windowTitle, place.left, place.top);
    const { width, height } = await windowState(windowTitle);
    await page.evaluate((text) => window.updateSpammer(text), `0,0,0,${interval},0,0,1,10,0`);
    return { interval, place: { ...place, width, height } };
}

/** The program has ended and what was in it is on disk, all of it. */
async function assertSaved({ interval, place }, told) {
    await within(30_000, ravelin.run.exited, `the program to end (${told})`);
    ravelin = undefined;
    const session = saved('session.dat') ?? '';
    assert.ok(session.startsWith(`SETTINGS:0,0,0,${interval},`), `${told}: the session begins with ${JSON.stringify(session.slice(0, 40))}`);
    assert.ok(session.endsWith('\r\n'), `${told}: the session stops in a line: ${JSON.stringify(session.slice(-40))}`);
    const settings = Object.fromEntries((saved('appsettings.txt') ?? '').split('\r\n').map((line) => line.split('=')));
    assert.deepEqual(['windowX', 'windowY', 'windowWidth', 'windowHeight'].map((key) => Number(settings[key])),
        [place.left, place.top, place.width, place.height], told);
    return session;
}

async function endOneRound(round, killAfter) {
    const reason = reasons[round % reasons.length];
    const told = `round ${round}, reason ${reason}, killed after ${killAfter} µs`;
    ravelin = await Ravelin.open({ keepData: true });
    const page = await ravelin.page();
    const changed = await change(page, round);
    await ravelin.detach();
    const took = Number(await systemTool('end-session', windowTitle, reason, killAfter));
    return { session: await assertSaved(changed, told), took };
}

// Right after the answer, and while the program ends by itself.
const killAfter = (round) => (round % 2 === 0 ? 0 : Math.round(10 ** (2 + 4 * Math.random())));

test(`what is in the program when the session ends is kept, ${rounds} times`, async () => {
    clearDataFolder();
    for (let round = 0; round < rounds; ++round) await endOneRound(round, killAfter(round));
});

/** The lines of a macro of so many events. */
function longMacro(count) {
    const lines = [];
    for (let i = 0; i < count; ++i) lines.push(`0,${(i / 1000).toFixed(3).replace(/\.?0+$/, '')},${i % 1280},${i % 1000},0,0,0,0\r\n`);
    return lines.join('');
}

test(`the same with a macro of a million events, ${longRounds} times`, async (context) => {
    const events = 1_000_000;
    clearDataFolder();
    mkdirSync(dataFolder(), { recursive: true });
    const head = 'SETTINGS:0,0,0,5,0,0,1,10,0,0,0,1,1,1,1,0,1,0,500,119,118,0,117,0,0,0,5,1,10,120,32,32,0,0,0,121\r\n';
    writeFileSync(path.join(dataFolder(), 'session.dat'), `${head}CURRENT:0\r\nPROFILE:Default Tracking Profile\r\n${longMacro(events)}`);
    let macro;
    for (let round = 0; round < longRounds; ++round) {
        const { session, took } = await endOneRound(round, killAfter(round));
        // Times are rounded by the first save; what was written once is written again as it was.
        const lines = session.slice(session.indexOf('\r\n0,') + 2);
        assert.equal(lines.split('\r\n').length - 1, events);
        assert.ok(lines === (macro ??= lines), `round ${round}: the macro is another`);
        context.diagnostic(`the end was answered after ${Math.round(took / 1000)} ms`);
    }
});

test('a session that ends for nobody else leaves no process behind', async () => {
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    const changed = await change(page, 7);
    await ravelin.detach();
    await systemTool('end-session', windowTitle, 0);
    await assertSaved(changed, 'not killed');
});

test('the end that setup asks for keeps the same', async () => {
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    const changed = await change(page, 8);
    await ravelin.detach();
    await systemTool('close-as-setup', windowTitle);
    await assertSaved(changed, 'closed by setup');
});

test('a session whose end another program has refused goes on', async () => {
    ravelin = await Ravelin.open();
    const page = await ravelin.page();
    await systemTool('refuse-end', windowTitle);
    await page.evaluate(() => window.updateSpammer('0,0,0,654,0,0,1,10,0'));
    await until(() => saved('session.dat')?.includes('0,0,0,654,'), 'the background save');
    await untilWindow(windowTitle);
});
