// The recorder of windows: nothing that could be seen is missing from it, and nothing is invented.
import assert from 'node:assert/strict';
import { until } from '../../e2e/lib/wine.mjs';
import { windowTool, windowState } from '../../e2e/lib/windows.mjs';
import { WindowLog } from '../../e2e/lib/window_log.mjs';
import { attach, BrowserHost } from '../lib/browser_host.mjs';
import { atEnd, test } from '../lib/harness.mjs';

async function openRecorded() {
    const log = await WindowLog.open();
    atEnd(() => log.close());
    const host = await BrowserHost.open({ env: log.env });
    const { browser, page } = await attach(host.published()[0]);
    atEnd(() => browser.close());
    return { log, host, page };
}

test('a window is recorded from its creation to its end, with every place and style', async () => {
    const { log, host, page } = await openRecorded();
    log.inOrder(host.title, 'create', 'style', 'title', 'show 1', 'call report');
    await until(() => log.of(host.title).some(({ kind }) => kind === 'frame'), 'the first picture');
    // Both are over before the program does anything else.
    await page.evaluate(() => flash());
    await windowTool('place', host.title, 111, 122);
    const { left, top, width, height } = await windowState(host.title);
    log.inOrder(host.title, 'place 700 600', /^style 8/, 'show 0', /^style/, 'show 1', `place ${left} ${top} ${left + width} ${top + height}`);
    const seen = log.seen(host.title);
    assert.ok(seen.some((state) => state.left === 700 && state.top === 600), JSON.stringify(seen));
    assert.ok(seen.some((state) => !state.caption), JSON.stringify(seen));
    assert.deepEqual([seen.at(-1).left, seen.at(-1).top, seen.at(-1).caption], [111, 122, true]);
    await host.close();
    assert.equal(log.of(host.title).at(-1).text, 'destroy');
});

test('what happens under a cloak is recorded and counts as unseen', async () => {
    const { log, host, page } = await openRecorded();
    const before = log.seen(host.title);
    assert.equal((await page.evaluate(() => cloak(true))), 1);
    assert.equal((await windowState(host.title)).cloaked, true);
    await page.evaluate(() => flash());
    await windowTool('place', host.title, 50, 60);
    await until(() => log.of(host.title).some(({ text }) => text.startsWith('place 50 60')), 'the new place');
    assert.deepEqual(log.seen(host.title), before);
    assert.equal((await page.evaluate(() => cloak(false))), 0);
    assert.equal((await windowState(host.title)).cloaked, false);
    log.inOrder(host.title, 'cloak 1', 'place 700 600', 'place 50 60', 'cloak 0');
    const seen = log.seen(host.title).slice(before.length);
    assert.deepEqual(seen.map((state) => [state.left, state.top]), [[50, 60]]);
    await host.close();
});
