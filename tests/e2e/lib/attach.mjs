// Attaching a test to a page through the engine's debugging port.
import { chromium } from 'playwright-core';

/**
 * The one page behind the port: { browser, page }. It stays as it is: Playwright would have every
 * page believe that it is focused, which also keeps it from ever being hidden.
 */
export async function attachTo(port) {
    const browser = await chromium.connectOverCDP(`http://127.0.0.1:${port}`);
    const page = browser.contexts()[0].pages()[0];
    // The state belongs to the connection that asked for it, which only Playwright's own half has.
    const session = page._connection.toImpl(page).delegate._mainFrameSession._client;
    await session.send('Emulation.setFocusEmulationEnabled', { enabled: false });
    return { browser, page };
}
