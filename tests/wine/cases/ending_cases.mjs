// The ends of programs, views and browsers, wanted and unwanted: nothing waits and nothing stays.
import assert from 'node:assert/strict';
import { readlinkSync } from 'node:fs';
import { scratch, until } from '../../e2e/lib/wine.mjs';
import { windowTool } from '../../e2e/lib/windows.mjs';
import { Witness } from '../../e2e/lib/witness.mjs';
import { attach, BrowserHost, pageText } from '../lib/browser_host.mjs';
import { atEnd, test } from '../lib/harness.mjs';
import { browserProcess, browserProcesses, makeProgram, openFiles } from '../lib/unix.mjs';

const rounds = Number(process.env.RAVELIN_TEST_ROUNDS ?? 4);

test('a program ends at once after a test program was attached and left, in front and behind', async () => {
    const witness = await Witness.open({ x: 700, y: 500 });
    atEnd(() => witness.close());
    for (let round = 0; round < rounds; round++) {
        const host = await BrowserHost.open();
        const { browser, page } = await attach(host.published()[0]);
        await page.click('#press');
        await host.reported('click', (name) => name === 'press');
        if (round % 2 === 1) await witness.focus();
        await browser.close();
        await host.close();
        assert.equal(host.exitCode, 0, `round ${round + 1}`);
    }
});

test('a program ends while a test program is still attached and busy', async () => {
    const host = await BrowserHost.open();
    const { browser, page } = await attach(host.published()[0]);
    const call = page.evaluate(() => new Promise(() => {})).catch((error) => error);
    await host.close();
    assert.equal(host.exitCode, 0);
    assert.match(String(await call), /closed/);
    await browser.close();
});

test('a program ends while its page is calling it without a pause', async () => {
    const page = pageText('plain.html').replace('addEventListener', "setInterval(() => { for (let i = 0; i < 20; i++) echo('x'.repeat(2000)); }, 1); addEventListener");
    const host = await BrowserHost.open({ page });
    await host.close();
    assert.equal(host.exitCode, 0);
});

test('a program ends though its browser has stopped', async () => {
    const host = await BrowserHost.open();
    process.kill(browserProcess(host.profiles()[0]), 'SIGSTOP');
    await host.click(80, 40);
    await host.close();
    assert.equal(host.exitCode, 0);
});

test('a program ends while its page asks with a message box', async () => {
    const page = pageText('plain.html').replace('addEventListener', "setTimeout(() => alert('wait for me'), 100); addEventListener");
    const host = await BrowserHost.open({ page, ready: false });
    await until(async () => (await windowTool('text', 'This page says'))?.includes('wait for me'), 'the message box');
    await windowTool('close', host.title);
    // A modal box keeps its program from being closed until it is answered.
    await windowTool('close', 'This page says');
    await host.close();
    assert.equal(host.exitCode, 0);
});

test('closing the view from the page ends the program and its browser', async () => {
    const page = pageText('plain.html').replace("report('ready', await where())", 'closeHost()');
    const host = await BrowserHost.open({ page, ready: false });
    await host.end();
    assert.equal(host.exitCode, 0);
});

test('the browser goes when the program is terminated', async () => {
    const host = await BrowserHost.open();
    assert.ok(host.leftovers().length > 3);
    await host.kill();
});

test('the browser goes when the Unix process of the program is killed', async () => {
    const host = await BrowserHost.open();
    host.run.process.kill('SIGKILL');
    await host.end();
});

test('a browser that is still starting goes with its program', async () => {
    const chromium = makeProgram('while :; do sleep 0.2; done');
    const host = await BrowserHost.open({ ready: false, env: { RAVELIN_TEST_CHROMIUM: chromium } });
    await until(() => host.profiles().length === 1 && browserProcess(host.profiles()[0]), 'the browser to start');
    host.run.process.kill('SIGKILL');
    await host.end();
});

test('the program outlives its browser, and the log says what happened', async () => {
    const host = await BrowserHost.open();
    process.kill(browserProcess(host.profiles()[0]), 'SIGKILL');
    await host.gone();
    await until(() => host.logText().includes('the browser has gone'), 'the log line');
    await host.close();
    assert.equal(host.exitCode, 0);
});

test('the browser holds none of the files that the program was started with', async () => {
    const host = await BrowserHost.open();
    const output = readlinkSync(`/proc/${host.run.process.pid}/fd/1`);
    const browsers = browserProcesses(host.log, host.profiles());
    assert.ok(browsers.length > 3, browsers.join(', '));
    for (const browser of browsers) {
        const open = openFiles(browser.split(' ')[0]);
        assert.ok(!open.includes(output) && !open.some((name) => name.startsWith(scratch)), `${browser} has ${open.join(' ')}`);
    }
    await host.close();
});
