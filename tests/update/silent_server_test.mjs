// Servers that take connections and say nothing, or go on and on: neither the program's start nor its
// end waits for them.
import assert from 'node:assert/strict';
import { createHash } from 'node:crypto';
import { existsSync, readdirSync } from 'node:fs';
import net from 'node:net';
import path from 'node:path';
import test, { after, afterEach, before } from 'node:test';
import { signManifest } from '../../packaging/update_signing.mjs';
import { Ravelin, windowTitle } from '../e2e/lib/ravelin.mjs';
import { prefix, until } from '../e2e/lib/wine.mjs';
import { windowTool } from '../e2e/lib/windows.mjs';
import { makeAuthority, makeCertificate } from './lib/certificates.mjs';
import { Probe } from './lib/probe.mjs';
import { apiHost, key, tier, webHost } from './lib/product.mjs';
import { body, Server, silence, stall } from './lib/server.mjs';

const manifestUrl = `https://${webHost}/update/${tier}.json`;
const installerUrl = `https://${apiHost}/download/setup.exe`;
const authority = makeAuthority('trusted');
// Half of what the program's HTTP client waits for each thing that it does, and far more than an end
// takes that waits for nothing.
const longestEnd = 5000;

let probe;
let close = () => {};

before(async () => {
    probe = await Probe.open();
    await probe.trust(authority);
});
afterEach(async () => {
    await close();
    close = () => {};
});
after(() => probe?.close());

async function listenTls() {
    const server = await Server.open(makeCertificate(authority, [webHost, apiHost]));
    close = () => server.close();
    return server;
}

const temporary = path.join(prefix, 'drive_c/users', process.env.USER ?? 'root', 'Temp');
const downloads = () => (existsSync(temporary) ? readdirSync(temporary).filter((name) => name.startsWith('Ravelin-update-')) : []);

/** Closes the window and asserts that the process is gone as soon as the window is. */
async function assertEndsAtOnce(t, ravelin) {
    await ravelin.detach();
    let exited = false;
    ravelin.run.exited.then(() => (exited = true));
    await windowTool('close', windowTitle);
    const began = Date.now();
    await until(() => exited, 'the program to end', 60_000);
    const took = Date.now() - began;
    t.diagnostic(`the process was gone after ${took} ms`);
    assert.equal(await ravelin.run.exited, 0);
    assert.ok(took < longestEnd, `the end took ${took} ms`);
}

test('a connection that is taken and left alone holds up neither start nor end', async (t) => {
    const sockets = [];
    const server = net.createServer((socket) => {
        socket.on('error', () => {});
        sockets.push(socket);
    });
    await new Promise((resolve) => server.listen(443, '127.0.0.1', resolve));
    close = async () => {
        for (const socket of sockets) socket.destroy();
        await new Promise((resolve) => server.close(resolve));
    };
    for (let round = 1; round <= 2; ++round) {
        const ravelin = await Ravelin.open();
        await until(() => sockets.length === round, 'the check for an update to connect', 60_000);
        await assertEndsAtOnce(t, ravelin);
    }
});

test('a manifest that never comes holds up the end of the program no more', async (t) => {
    const server = await listenTls();
    server.on(manifestUrl, silence());
    const ravelin = await Ravelin.open();
    await until(() => server.requests.length === 1, 'the request for the manifest', 60_000);
    await assertEndsAtOnce(t, ravelin);
});

/** Starts the program with an update on offer and lets the page ask for it; gives the program. */
async function updating(handler) {
    const server = await listenTls();
    const sha256 = createHash('sha256').update('never').digest('hex');
    server.on(manifestUrl, body(JSON.stringify(signManifest({ tier, version: '99999.0.0', url: installerUrl, sha256 }, key))));
    server.on(installerUrl, handler);
    const ravelin = await Ravelin.open();
    const page = await ravelin.page();
    await page.getByRole('button', { name: 'Update', exact: true }).click({ timeout: 60_000 });
    await until(() => server.requests.some(({ path: asked }) => asked === '/download/setup.exe'), 'the request for the installer', 60_000);
    return { ravelin, page };
}

for (const [what, handler] of [['never begins', silence()], ['stops in the middle', stall(Buffer.alloc(100_000), 1_000_000)]]) {
    test(`a download that ${what} ends with the program, and nothing of it stays`, async (t) => {
        const { ravelin } = await updating(handler);
        if (what === 'stops in the middle') await until(() => downloads().length === 1, 'the download to begin');
        await assertEndsAtOnce(t, ravelin);
        assert.deepEqual(downloads(), []);
    });
}

/** Sends a little at a time, for longer than any test takes. */
function trickle(request, response) {
    response.writeHead(200, { 'content-length': 200_000_000 });
    const timer = setInterval(() => response.write(Buffer.alloc(20_000)), 5);
    response.on('close', () => clearInterval(timer));
}

test('a download that reports its progress to the last ends with the program, in order', async (t) => {
    const { ravelin, page } = await updating(trickle);
    await page.getByText(/\d %$/).waitFor();
    await assertEndsAtOnce(t, ravelin);
    assert.deepEqual(downloads(), []);
});
