// Screens and texts that are larger than usual: the page counts in its own pixels, the window in those of the screen.
import assert from 'node:assert/strict';
import { runToEnd, until } from '../../e2e/lib/wine.mjs';
import { attach, BrowserHost, pageText } from '../lib/browser_host.mjs';
import { atEnd, test } from '../lib/harness.mjs';

const desktopKey = 'HKCU\\Control Panel\\Desktop';

/** Programs that are started from here on until the test's end have this scale, in percent. */
async function setScale(percent) {
    const set = (dpi) => runToEnd('reg', ['add', desktopKey, '/v', 'LogPixels', '/t', 'REG_DWORD', '/d', String(dpi), '/f']);
    const { output } = await runToEnd('reg', ['query', desktopKey, '/v', 'LogPixels']);
    const before = parseInt(output.match(/0x[0-9a-f]+/i)?.[0] ?? '96');
    atEnd(() => set(before));
    await set((96 * percent) / 100);
}

// The engine counts with single precision.
const same = (one, other) => Math.abs(one - other) < 1e-6;
// It rounds what is not whole once up and once down.
const near = (one, other) => Math.abs(one - other) <= 1.01;

const corner = '<div id="corner" style="right:0;bottom:0;width:10px;height:10px;background:#0000ff"></div><div id="box">';

for (const [display, text] of [[100, 100], [125, 100], [150, 100], [200, 100], [100, 130], [150, 130]]) {
    const ratio = (display * text) / 10_000;
    test(`at ${display} % and text of ${text} % the page is sharp, whole and pressed where it is pointed at`, async () => {
        await setScale(display);
        const host = await BrowserHost.open({ page: pageText('events.html').replace('<div id="box">', corner), env: { RAVELIN_TEST_TEXT_SIZE: String(text) } });
        // The library's sizes are at 100 % and know nothing of the size of text.
        assert.deepEqual([host.place.width, host.place.height], [400 * display / 100, 300 * display / 100]);
        const { browser, page } = await attach(host.published()[0]);
        const seen = await page.evaluate(() => ({ ratio: devicePixelRatio, width: innerWidth, height: innerHeight, screen: [screen.width, screen.height] }));
        const holds = (...pairs) => pairs.every(([size, pixels]) => near(size, pixels / ratio));
        assert.ok(same(seen.ratio, ratio), `${seen.ratio}`);
        assert.ok(holds([seen.width, host.place.width], [seen.height, host.place.height], [seen.screen[0], 1280], [seen.screen[1], 1000]), JSON.stringify(seen));
        atEnd(() => browser.close());

        const physical = (size) => Math.round(size * ratio);
        await until(async () => (await host.colour(physical(60), physical(140))) === '#ff0001', 'the red box');
        assert.equal(await host.colour(physical(19) - 2, physical(140)), '#123456');
        // But for a pixel that was cut, the page reaches the edges of its window.
        const last = () => host.colour(host.place.width - 3, host.place.height - 3);
        assert.equal(await last(), '#0000ff');
        await host.click(physical(22), physical(22));
        await host.reported('click', (name) => name === 'press');
        await host.click(physical(138), physical(58));
        await host.reported('click', (name) => name === 'press');
        await host.moveTo(physical(60), physical(140));
        await host.reported('pointermove', (x, y) => Math.abs(x - 60) < 1 && Math.abs(y - 140) < 1);

        host.forget();
        await page.evaluate(() => enlarge());
        const [, width, height, now] = await host.reported('size', (w) => w > seen.width);
        host.place = (await host.reported('place', (place) => place.width > 900))[1];
        assert.ok(same(now, ratio), `${now}`);
        assert.ok(holds([width, host.place.width], [height, host.place.height]), `${width}x${height}`);
        await until(async () => (await last()) === '#0000ff', 'the page at its new edges');
        await host.close();
    });
}

test('a page that is longer than its window has a scroll bar, which takes its width', async () => {
    const host = await BrowserHost.open({ page: pageText('plain.html').replace('PLACEHOLDER', '<span style="display:block;height:3000px">') });
    const { browser, page } = await attach(host.published()[0]);
    const bar = await page.evaluate(() => innerWidth - document.documentElement.clientWidth);
    assert.ok(bar >= 10 && bar <= 20, `${bar} pixels`);
    await browser.close();
    await host.close();
});
