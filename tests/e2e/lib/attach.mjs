// Attaching a test to a page through the engine's debugging port.
import { chromium } from 'playwright-core';

// Playwright's own half of a page knows what its interface does not tell.
const inside = (page) => page._connection.toImpl(page).delegate;

// Between two processes of its own a page has none. The engine then tells whoever comes just then that
// it has crashed, which Playwright believes for ever, or Playwright waits for that page without end.
const longest = 60_000;
const patience = 8_000;

async function connect(port, end) {
    try {
        return await chromium.connectOverCDP(`http://127.0.0.1:${port}`, { timeout: patience });
    } catch (error) {
        if (error.name !== 'TimeoutError' || Date.now() > end) throw error;
        return null;
    }
}

/**
 * The view's page, by its port and target: { browser, page }. The browser may have others for a
 * moment while it starts. The page stays as it is: Playwright would have every page believe that it
 * is focused, which also keeps it from ever being hidden.
 */
export async function attachTo({ port, target }) {
    for (const end = Date.now() + longest; ;) {
        const browser = await connect(port, end);
        if (!browser) continue;
        const context = browser.contexts()[0];
        const isTheView = (page) => inside(page)._targetId === target;
        const page = context.pages().find(isTheView) ?? await context.waitForEvent('page', isTheView);
        // The state belongs to the connection that asked for it.
        const session = inside(page)._mainFrameSession._client;
        try {
            await session.send('Emulation.setFocusEmulationEnabled', { enabled: false });
            return { browser, page };
        } catch (error) {
            if (error.type !== 'crashed' || Date.now() > end) throw error;
            await browser.close();
        }
    }
}
