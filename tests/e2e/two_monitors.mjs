// Two monitors, one left of the primary one and shorter: places on it, panels on it, and what stays on
// the primary one. Run by tests/wine/two_monitors.sh.
import assert from 'node:assert/strict';
import test, { afterEach, before } from 'node:test';
import { clicker, panelPage } from './lib/panels.mjs';
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { monitors } from './lib/system.mjs';
import { Witness } from './lib/witness.mjs';
import { until, xdotool } from './lib/wine.mjs';
import { untilWindow, windowState, windowTool } from './lib/windows.mjs';

let left;
let primary;
let ravelin;
let witness;

before(async () => {
    const all = await monitors();
    primary = all.find((monitor) => monitor.primary);
    left = all.find((monitor) => !monitor.primary);
    assert.deepEqual(primary?.whole, { left: 0, top: 0, width: 1280, height: 1000 });
    assert.deepEqual(left?.whole, { left: -1200, top: 0, width: 1200, height: 800 });
});

afterEach(async () => {
    try {
        await witness?.close();
        await ravelin?.closeOrKill();
    } finally {
        witness = ravelin = undefined;
    }
});

async function openAt(settings) {
    ravelin = await Ravelin.open({ settings });
    return await untilWindow(windowTitle);
}

const place = ({ left: x, top, width, height }) => [x, top, width, height];
// Positions travel as parts of 65536 of the screen, cut twice on their way: a pixel may be lost.
const isNear = (got, wanted) => got.length === wanted.length && got.every((value, i) => wanted[i] - value >= 0 && wanted[i] - value <= 1);
const isIn = ({ left: x, top }, { whole }) =>
    x >= whole.left && x < whole.left + whole.width && top >= whole.top && top < whole.top + whole.height;

/** The display counts from the corner of the left monitor, Windows from that of the primary one. */
const moveTo = (x, y) => xdotool('mousemove', x - left.whole.left, y - left.whole.top);

test('a saved place on the left monitor is restored there', async () => {
    const state = await openAt({ windowX: -900, windowY: 60, windowWidth: 500, windowHeight: 640, windowMaximized: 0 });
    assert.deepEqual(place(state), [-900, 60, 500, 640]);
});

test('a size is cut to the work area of the left monitor', async () => {
    const state = await openAt({ windowX: -1100, windowY: 10, windowWidth: 3000, windowHeight: 3000, windowMaximized: 0 });
    assert.deepEqual(place(state), [-1100, 10, left.work.width, left.work.height]);
});

test('a window maximised on the left monitor opens maximised there and returns to its place', async () => {
    const state = await openAt({ windowX: -900, windowY: 60, windowWidth: 500, windowHeight: 640, windowMaximized: 1 });
    assert.ok(state.maximized);
    assert.ok(state.left + state.width / 2 < 0, JSON.stringify(state));
    await windowTool('restore', windowTitle);
    assert.deepEqual(place(await untilWindow(windowTitle, (now) => !now.maximized)), [-900, 60, 500, 640]);
});

test('what is moved to the left monitor is found there at the next start', async () => {
    await openAt({});
    await windowTool('move', windowTitle, -1000, 40, 520, 600);
    assert.equal(await ravelin.close(), 0);
    ravelin = await Ravelin.open({ keepData: true });
    assert.deepEqual(place(await untilWindow(windowTitle)), [-1000, 40, 520, 600]);
});

for (const [where, windowX, windowY] of [['right of all', 4000, 50], ['left of all', -3000, 50], ['below the shorter one', -600, 900]])
    test(`a place on a monitor that is gone, ${where}, is left alone`, async () => {
        const state = await openAt({ windowX, windowY, windowWidth: 444, windowHeight: 555, windowMaximized: 0 });
        assert.notDeepEqual(place(state).slice(2), [444, 555]);
        assert.ok(isIn(state, primary) || isIn(state, left), JSON.stringify(state));
    });

test('a panel detached on the left monitor opens there and is moved up into its work area', async () => {
    await openAt({ windowX: -900, windowY: 20, windowWidth: 460, windowHeight: 640, windowMaximized: 0 });
    // Not by its button: the browser of the tests cannot be told of a place left of the primary screen,
    // so its page asks for one on that.
    const page = await ravelin.page();
    assert.ok(!(await page.evaluate(() => window.detachPanel('Auto clicker', 'panel-spammer', -700, 100, 'ravelin'))));
    const child = await panelPage(ravelin, clicker);
    const opened = await windowState(clicker.window);
    assert.ok(isIn(opened, left), JSON.stringify(opened));
    // Below the edge of this monitor, above that of the primary one.
    await windowTool('place', clicker.window, -700, 600);
    await child.evaluate(() => window.resizeWindow(innerWidth, innerHeight));
    const bottom = left.work.top + left.work.height;
    const moved = await untilWindow(clicker.window, (now) => now.top + now.height === bottom, 'the panel to move up');
    assert.deepEqual([moved.left, moved.height], [-700, opened.height]);
});

async function openWithWitness() {
    await openAt({ windowX: -900, windowY: 20, windowWidth: 460, windowHeight: 640, windowMaximized: 0 });
    const page = await ravelin.page();
    witness = await Witness.open();
    return page;
}

test('the fixed point is that of the primary screen', async () => {
    const page = await openWithWitness();
    await page.evaluate(() => window.pickLocation());
    const at = { x: witness.origin.x + 37, y: witness.origin.y + 53 };
    await moveTo(at.x, at.y);
    await xdotool('click', 1);
    const settings = await until(async () => {
        const now = await page.evaluate(() => window.getSettings());
        return now.locMode === 1 && now;
    }, 'the point to be picked');
    assert.deepEqual([settings.fixedX, settings.fixedY], [at.x, at.y]);
    await moveTo(-500, 300);
    witness.mark();
    await page.evaluate(() => window.updateSpammer('0,0,0,50,0,0,0,1,1'));
    await page.evaluate(() => window.startSpammer());
    const click = await until(() => witness.fresh('left-down')[0], 'the click at the fixed point');
    assert.ok(isNear([click.a, click.b], [37, 53]), JSON.stringify(click));
});

test('recorded moves and clicks come back at their places of the primary screen', async () => {
    await openWithWitness();
    const points = [[20, 30], [120, 90], [260, 200]];
    await xdotool('key', 'F8');
    await ravelin.untilStatus((status) => status.state === 'Recording', 'the recording');
    for (const [x, y] of points) {
        witness.mark();
        await moveTo(witness.origin.x + x, witness.origin.y + y);
        await until(() => witness.fresh('move').some((line) => line.a === x && line.b === y), `the pointer at ${x}, ${y}`);
        await xdotool('click', 1);
        await until(() => witness.fresh('left-up').length === 1, 'the click');
    }
    await xdotool('key', 'F8');
    await ravelin.untilStatus((status) => status.state === 'Idle', 'the end of the recording');
    await moveTo(-500, 300);
    witness.mark();
    await xdotool('key', 'F7');
    await until(() => witness.fresh('left-up').length === points.length, 'the macro');
    const clicks = witness.fresh('left-down').flatMap((line) => [line.a, line.b]);
    assert.ok(isNear(clicks, points.flat()), JSON.stringify(clicks));
});
