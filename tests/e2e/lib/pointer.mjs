// The real pointer, one movement at a time, each waited for until it has arrived.
//
// An event of the pointer that was made before a window moved is mapped onto the window's new place
// by Wine: two movements on their way at once add up. And what goes to two programs, or to a page
// and to the system, arrives in no certain order.
import { until, xdotool } from './wine.mjs';
import { untilWindow, windowState } from './windows.mjs';

const longestStep = 150; // pixels

/** The places on the straight way from one point to another, the last one included. */
function stepsBetween(from, to) {
    const distance = Math.max(Math.abs(to.x - from.x), Math.abs(to.y - from.y));
    const count = Math.max(1, Math.ceil(distance / longestStep));
    const between = (a, b, i) => Math.round(a + ((b - a) * i) / count);
    return Array.from({ length: count }, (_, i) => ({ x: between(from.x, to.x, i + 1), y: between(from.y, to.y, i + 1) }));
}

/** Where the pointer is on the screen. */
export async function pointerPlace() {
    const [, x, y] = (await xdotool('getmouselocation')).match(/x:(-?\d+) y:(-?\d+)/);
    return { x: Number(x), y: Number(y) };
}

/** Moves the pointer to these points of the screen, one after another; the page has seen each. */
export async function moveOverPage(page, ...points) {
    await page.evaluate(() => {
        window.pointerSeen ??= (addEventListener('pointermove', (event) => (window.pointerSeen = [event.screenX, event.screenY]), true), []);
    });
    for (const { x, y } of points) {
        const { x: oldX, y: oldY } = await pointerPlace();
        if (x === oldX && y === oldY) continue;
        await xdotool('mousemove', x, y);
        // A pixel of the page may be more than one of the screen.
        const seen = ([left, top]) => window.pointerSeen.length > 0 && [left, top].every((at, i) => Math.abs(at - window.pointerSeen[i] * devicePixelRatio) < Math.max(1, devicePixelRatio + 0.5));
        await until(() => page.evaluate(seen, [x, y]), `the page to see the pointer at ${x}, ${y}`);
    }
}

/** Clicks a point of the screen and waits until the page has seen it. */
export async function clickOnPage(page, at) {
    await moveOverPage(page, at);
    await page.evaluate(() => {
        window.clickSeen = false;
        addEventListener('pointerup', () => (window.clickSeen = true), { capture: true, once: true });
    });
    await xdotool('click', 1);
    await until(() => page.evaluate(() => window.clickSeen), 'the page to see the click');
}

/**
 * Moves the pointer, to which a window hangs, to a point of the screen; gives the window's state once
 * it is there. `hold` is { title, x, y, left, top }: where pointer and window are.
 */
export async function dragWindow(hold, to) {
    let state = await windowState(hold.title);
    for (const { x, y } of stepsBetween(hold, to)) {
        await xdotool('mousemove', x, y);
        const left = hold.left + x - hold.x;
        const top = hold.top + y - hold.y;
        state = await untilWindow(hold.title, (now) => now.left === left && now.top === top, `"${hold.title}" to follow to ${left}, ${top}`);
        Object.assign(hold, { x, y, left, top });
    }
    return state;
}

/** Lets the window go that hangs to the pointer. */
export async function dropWindow(title) {
    await xdotool('mouseup', 1);
    await until(async () => !(await windowState(title))?.holdsMouse, `"${title}" to be let go`);
}
