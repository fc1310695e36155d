// Panels in windows of their own: what a user does with them, and what is to be seen.
import { until, xdotool } from './wine.mjs';
import { windowState } from './windows.mjs';

export const clicker = { id: 'panel-spammer', title: 'Auto clicker', window: 'Ravelin - Auto clicker' };
export const keySpammer = { id: 'panel-keyspam', title: 'Key spammer', window: 'Ravelin - Key spammer' };
export const macro = { id: 'panel-tracker', title: 'Macro', window: 'Ravelin - Macro' };

// While a panel is dragged, a second element of the same id follows the cursor.
const inPage = (page, panel) => page.locator(`#${panel.id}:not(.sortable-drag)`);
export const shown = (page, panel) => inPage(page, panel).waitFor({ state: 'visible' });
export const hidden = (page, panel) => inPage(page, panel).waitFor({ state: 'hidden' });

/** The element's box in pixels of the screen, counted from the corner of its window's content. */
export async function physicalBox(page, element) {
    const box = await element.boundingBox();
    const ratio = await page.evaluate(() => devicePixelRatio);
    return Object.fromEntries(Object.entries(box).map(([name, size]) => [name, size * ratio]));
}

/** Detaches the panel with its button and gives the page of its window. */
export async function detachByButton(ravelin, panel) {
    const page = await ravelin.page();
    await page.getByRole('button', { name: `Show ${panel.title} in a window of its own` }).click();
    await hidden(page, panel);
    return await panelPage(ravelin, panel);
}

/** The page of the panel's window, once that is there as a user sees it: frameless around the panel. */
export async function panelPage(ravelin, panel) {
    const page = await ravelin.panelPage(panel.window);
    const inside = page.locator(`#${panel.id}`);
    await inside.waitFor();
    let seen;
    try {
        await until(async () => {
            const state = await windowState(panel.window);
            const box = await physicalBox(page, inside);
            seen = JSON.stringify([state, box]);
            return state && !state.frame && Math.abs(state.height - box.height) <= 4;
        }, `"${panel.window}" to fit its panel`);
    } catch (error) {
        error.message += `\nwindow and panel are ${seen}`;
        throw error;
    }
    return page;
}

export async function untilGone(title) {
    await until(async () => (await windowState(title)) === null, `the window "${title}" to go`);
}

/** Does what ends the page's window. The page may be gone before it can tell that it has done it. */
export async function ending(deed) {
    await deed.catch((error) => {
        if (!/closed/.test(error.message)) throw error;
    });
}

/** Where on the screen the title of the panel is, in the window of that title. */
export async function titlePlace(page, panel, windowTitle) {
    const box = await physicalBox(page, page.locator(`#${panel.id} .title`));
    const inner = await page.evaluate(() => ({ width: innerWidth * devicePixelRatio, height: innerHeight * devicePixelRatio }));
    const frame = await windowState(windowTitle);
    const border = Math.round((frame.width - inner.width) / 2);
    return {
        x: frame.left + border + Math.round(box.x + 20),
        y: frame.top + Math.round(frame.height - inner.height - border + box.y + box.height / 2),
    };
}

/** Presses the header of a panel's window and waits until it follows; gives the hold for dragWindow. */
export async function grab(child, panel) {
    const { left, top } = await windowState(panel.window);
    const place = await titlePlace(child, panel, panel.window);
    await child.evaluate(() => {
        const begin = window.beginWindowDrag;
        window.dragBegan = false;
        window.beginWindowDrag = async (text) => {
            await begin(text);
            window.dragBegan = true;
            window.beginWindowDrag = begin;
        };
    });
    await xdotool('mousemove', place.x, place.y, 'mousedown', 1);
    await until(() => child.evaluate(() => window.dragBegan), 'the drag to begin');
    return { title: panel.window, ...place, left, top };
}
