// Attaching a test to a page through the engine's debugging port.
import { chromium } from 'playwright-core';

// Playwright's own half of a page knows what its interface does not tell.
const inside = (page) => page._connection.toImpl(page).delegate;

/**
 * The view's page, by its port and target: { browser, page }. The browser may have others for a
 * moment while it starts. The page stays as it is: Playwright would have every page believe that it
 * is focused, which also keeps it from ever being hidden.
 */
export async function attachTo({ port, target }) {
    for (;;) {
        const browser = await chromium.connectOverCDP(`http://127.0.0.1:${port}`);
        const context = browser.contexts()[0];
        const isTheView = (page) => inside(page)._targetId === target;
        const page = context.pages().find(isTheView) ?? await context.waitForEvent('page', isTheView);
        // The state belongs to the connection that asked for it.
        const session = inside(page)._mainFrameSession._client;
        try {
            await session.send('Emulation.setFocusEmulationEnabled', { enabled: false });
            return { browser, page };
        } catch (error) {
            // Between two processes of its own the page has none, and the engine tells whoever comes
            // just then that it has crashed. Playwright would believe so for ever.
            if (error.type !== 'crashed') throw error;
            await browser.close();
        }
    }
}
