// Browser processes: one a view, found by tests, and named in the log when there is none.
import assert from 'node:assert/strict';
import { createHash } from 'node:crypto';
import { readFileSync } from 'node:fs';
import { createServer } from 'node:http';
import path from 'node:path';
import { until, xdotool } from '../../e2e/lib/wine.mjs';
import { untilWindow, windowState, windowTool } from '../../e2e/lib/windows.mjs';
import { attach, BrowserHost, pageText } from '../lib/browser_host.mjs';
import { atEnd, test } from '../lib/harness.mjs';
import { makeProgram } from '../lib/unix.mjs';

test('a test program finds the page through the published port', async () => {
    const host = await BrowserHost.open();
    const [view] = host.published();
    assert.equal(view.name, `${view.pid}.port`);
    assert.match(view.commandLine, /browser_host\.exe/);
    const [port, target] = readFileSync(path.join(host.profiles()[0], 'devtools.txt'), 'utf8').split('\n');
    assert.deepEqual([Number(port), target], [view.port, view.target]);

    const { browser, page } = await attach(view);
    assert.equal(await page.title(), 'Events');
    await page.click('#press');
    await host.reported('click', (name) => name === 'press');
    await page.fill('#field', 'from Playwright');
    await host.reported('value', (value) => value === 'from Playwright');
    // Attaching changes neither the page's size nor its picture on the screen.
    const inner = await page.evaluate(() => [innerWidth, innerHeight]);
    assert.deepEqual(inner, [host.place.width, host.place.height]);
    await page.evaluate(() => { document.getElementById('box').style.background = '#0000ff'; });
    await until(async () => (await host.colour(60, 140)) === '#0000ff', 'the new colour');
    await browser.close();

    // And leaving it leaves the program's own view at work.
    await host.click(80, 40);
    await host.reported('click', (name) => name === 'press');
    await host.close();
});

test('two programs show a page each and end on their own', async () => {
    const hosts = await Promise.all(['#aa0000', '#00aa00'].map((colour) => BrowserHost.open({ page: pageText('events.html').replaceAll('#123456', colour) })));
    const [first, second] = hosts;
    assert.notEqual(first.published()[0].port, second.published()[0].port);
    await second.moveAside();
    await until(async () => (await first.colour(10, 250)) === '#aa0000', 'the first page');
    await until(async () => (await second.colour(10, 250)) === '#00aa00', 'the second page');
    await first.close();
    await second.click(80, 40);
    await second.reported('click', (name) => name === 'press');
    await second.close();
});

test('two views of one program have a browser each', async () => {
    const host = await BrowserHost.open({ options: ['--two-views'] });
    await host.reported('ready');
    const views = host.published();
    assert.deepEqual(views.map((view) => view.name).sort(), [`${views[0].pid}-2.port`, `${views[0].pid}.port`]);
    for (const view of views) {
        const { browser, page } = await attach(view);
        await page.click('#press');
        await host.reported('click', (name) => name === 'press');
        await browser.close();
    }
    await windowTool('close', `${host.title} 2`);
    // A title matches from its beginning.
    await until(async () => (await windowState(`${host.title} 2`)) === null, 'the second window to go');
    await windowTool('close', host.title);
    await host.end();
});

test('without Chromium there is no view, and the log says why', async () => {
    const host = await BrowserHost.open({ ready: false, env: { RAVELIN_TEST_CHROMIUM: '/nowhere/chromium' } });
    await host.end({ keepFolder: true });
    assert.equal(host.exitCode, 4);
    const log = host.logText();
    assert.match(log, /missing \/nowhere\/chromium: install it/);
    assert.match(log, /no view: 0x80070002/);
});

test('a Chromium that ends at once makes no view either', async () => {
    const host = await BrowserHost.open({ ready: false, env: { RAVELIN_TEST_CHROMIUM: 'false' } });
    await host.end({ keepFolder: true });
    assert.equal(host.exitCode, 4);
    assert.match(host.logText(), /browser: ended 1/);
});

test('a browser that is lost before it shows a page makes no view', async () => {
    const server = createServer();
    server.on('upgrade', (request, socket) => {
        const key = createHash('sha1').update(request.headers['sec-websocket-key'] + '258EAFA5-E914-47DA-95CA-C5AB0DC85B11').digest('base64');
        socket.on('error', () => {});
        socket.write(`HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Accept: ${key}\r\n\r\n`);
        // The first command goes unanswered.
        socket.once('data', () => socket.destroy());
    });
    await new Promise((resolve) => server.listen(0, '127.0.0.1', resolve));
    atEnd(() => server.close());
    const chromium = makeProgram(`echo 'DevTools listening on ws://127.0.0.1:${server.address().port}/devtools/browser/none'; sleep 600`);
    const host = await BrowserHost.open({ ready: false, env: { RAVELIN_TEST_CHROMIUM: chromium } });
    await host.end({ keepFolder: true });
    assert.equal(host.exitCode, 4);
    assert.match(host.logText(), /the browser has gone/);
});

test('a message box stands for alert and confirm, and the page waits for it', async () => {
    const page = pageText('plain.html').replace('addEventListener', "setTimeout(() => { alert('look here'); report('confirmed', confirm('sure?')); }, 100);addEventListener");
    const host = await BrowserHost.open({ page, ready: false });
    const box = 'This page says';
    const asks = async (words) => {
        await until(async () => (await windowTool('text', box))?.includes(words), `the box to say ${words}`);
        await untilWindow(box, (state) => state.foreground, 'the box in front');
    };
    await asks('look here');
    assert.deepEqual(host.since('confirmed'), []);
    await xdotool('key', 'Return');
    await asks('sure?');
    await xdotool('key', 'Escape');
    assert.deepEqual(await host.reported('confirmed'), ['confirmed', false]);
    await host.close();
});
