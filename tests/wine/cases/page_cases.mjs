// What a page looks like, what its scripts can do and how large it may be.
import assert from 'node:assert/strict';
import path from 'node:path';
import { until } from '../../e2e/lib/wine.mjs';
import { windowTool } from '../../e2e/lib/windows.mjs';
import { attach, BrowserHost, pageText } from '../lib/browser_host.mjs';
import { test } from '../lib/harness.mjs';
import { differentPixels } from '../lib/unix.mjs';

test('a page is on the screen with its exact colours', async () => {
    const host = await BrowserHost.open();
    await until(async () => (await host.colour(60, 140)) === '#ff0001', 'the red box');
    assert.equal(await host.colour(10, 250), '#123456');
    await host.close();
    assert.equal(host.exitCode, 0);
});

test('text on the screen is as crisp as the browser draws it', async () => {
    const host = await BrowserHost.open();
    const [view] = host.published();
    const { browser, page } = await attach(view);
    const drawn = path.join(host.folder, 'drawn.png');
    await page.screenshot({ path: drawn });
    await until(async () => (await differentPixels(await host.capture(), drawn)) === 0, 'equal pictures');
    await browser.close();
    await host.close();
});

test('scripts of the host run before those of the page, in a blank document of no origin', async () => {
    const host = await BrowserHost.open();
    host.read = 0;
    const [, initRan, state, address, origin] = await host.reported('script');
    assert.equal(initRan, 'loading');
    assert.equal(state, 'loading');
    assert.equal(address, 'about:blank');
    assert.equal(origin, 'null');
    await host.close();
});

test('documents that the page opens by itself get the scripts as they are then', async () => {
    const page = pageText('plain.html').replace(
        'addEventListener',
        `const kindInNewFrame = () => new Promise((done) => {
            const frame = document.createElement('iframe');
            frame.srcdoc = '<p>new</p>';
            frame.onload = () => { done(typeof frame.contentWindow.late); frame.remove(); };
            document.body.append(frame);
        });
        const becomes = async (kind) => {
            while (await kindInNewFrame() !== kind);
            report('late', kind);
        };
        addEventListener('load', async () => {
            await becomes('undefined');
            await bindLate();
            await becomes('function');
            await unbindLate();
            await becomes('undefined');
        });
        addEventListener`,
    );
    const host = await BrowserHost.open({ page, ready: false });
    for (const kind of ['undefined', 'function', 'undefined']) assert.equal((await host.reported('late'))[1], kind);
    await host.close();
});

test('a bound method answers, rejects and is called back', async () => {
    const page = pageText('plain.html').replace(
        'addEventListener',
        `(async () => {
            report('answer', await echo(1, 'zwei \\u{1F600}', [null, { a: true }]));
            report('rejected', await fail('no').catch((error) => ['caught', error]));
            window.onCallBack = () => report('calledBack');
            callBack();
            try { localStorage.length; } catch (error) { report('storage', error.name); }
        })();
        addEventListener`,
    );
    const host = await BrowserHost.open({ page, ready: false });
    assert.deepEqual((await host.reported('answer'))[1], [1, 'zwei \u{1F600}', [null, { a: true }]]);
    assert.deepEqual((await host.reported('rejected'))[1], ['caught', ['no']]);
    host.read = 0;
    await host.reported('storage', (name) => name === 'SecurityError');
    host.read = 0;
    await host.reported('calledBack');
    await host.close();
});

test('many calls in a row are all answered, in their order', async () => {
    const page = pageText('plain.html').replace(
        'addEventListener',
        `(async () => {
            const answers = await Promise.all(Array.from({ length: 300 }, (_, i) => echo(i)));
            report('answers', answers.every(([value], i) => value === i), answers.length);
        })();
        addEventListener`,
    );
    const host = await BrowserHost.open({ page, ready: false });
    assert.deepEqual(await host.reported('answers'), ['answers', true, 300]);
    await host.close();
});

test('a page of just under 2 MiB is shown whole', async () => {
    const filler = 'x'.repeat(2 * 1024 * 1024 - 2000);
    const page = pageText('plain.html').replace('PLACEHOLDER', filler).replace('addEventListener', `report('length', document.querySelector('p').textContent.length); addEventListener`);
    const host = await BrowserHost.open({ page, ready: false });
    assert.deepEqual(await host.reported('length'), ['length', filler.length]);
    await host.close();
});

test('the page follows the size of its window and is drawn to its new edges', async () => {
    const host = await BrowserHost.open({ page: pageText('events.html').replace('<div id="box">', '<div style="right:0;bottom:0;width:10px;height:10px;background:#0000ff"></div><div id="box">') });
    host.forget();
    await windowTool('move', host.title, 30, 40, 640, 480);
    const [, width, height, ratio] = await host.reported('size', (w) => w > 600);
    assert.equal(ratio, 1);
    assert.ok(width > 620 && width < 640 && height > 430 && height < 480, `${width}x${height}`);
    host.place = (await host.reported('place', (place) => place.width > 600))[1];
    assert.deepEqual([host.place.width, host.place.height], [width, height]);
    await until(async () => (await host.colour(width - 3, height - 3)) === '#0000ff', 'the blue corner');
    await host.close();
});

test('an uncaught error of the page is in the log', async () => {
    const page = pageText('plain.html').replace('addEventListener', "setTimeout(() => { throw new Error('broken on purpose'); });addEventListener");
    const host = await BrowserHost.open({ page });
    await until(() => host.logText().includes('broken on purpose'), 'the log line');
    await host.close();
});
