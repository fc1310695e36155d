// What the download makes of everything that can come from the installer's address. Each failure
// leaves nothing on the disk.
import assert from 'node:assert/strict';
import { createHash, randomBytes } from 'node:crypto';
import { readFileSync, rmSync, statSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test, { after, before, beforeEach } from 'node:test';
import { windowsPath } from '../e2e/lib/wine.mjs';
import { makeAuthority, makeCertificate } from './lib/certificates.mjs';
import { Probe } from './lib/probe.mjs';
import { apiHost, unrelatedHost, webHost } from './lib/product.mjs';
import { body, cutShort, redirect, Server, stall, status, unannounced, zeros } from './lib/server.mjs';

const url = `https://${webHost}/download/setup.exe?build=1`;
const authority = makeAuthority('trusted');
const certificate = makeCertificate(authority, [webHost, apiHost]);

const installer = randomBytes(300_000);
const digestOf = (bytes) => createHash('sha256').update(bytes).digest('hex');
const digest = digestOf(installer);
const most = 200 * 1024 * 1024;

const messages = {
    link: 'Update failed: the download link was not valid.',
    temporary: 'Update failed: could not find a temporary folder to download to.',
    folder: 'Update failed: could not create a secure download folder.',
    download: 'Update failed: could not download the new installer (or it was larger than expected). Check your internet connection and try again.',
    match: 'Update failed: the downloaded file did not match what was expected, so nothing was installed.',
};

let server, probe;

before(async () => {
    server = await Server.open(certificate);
    probe = await Probe.open();
    await probe.trust(authority);
});
beforeEach(() => server.reset());
after(async () => {
    await probe?.close();
    await server?.close();
});

/** Downloads what the handler sends. */
async function downloadFrom(handler, { sha256 = digest, stopAt } = {}) {
    server.on(url, handler);
    return await probe.download(url, sha256, stopAt);
}

/** The file that a successful download left, which is gone afterwards. */
async function takeInstaller(result) {
    assert.equal(result.message, '');
    const [folder] = probe.leftovers();
    assert.match(folder, /^Ravelin-update-[0-9a-f]{32}$/);
    const file = path.join(probe.temp, folder, 'installer.exe');
    assert.equal(result.path, windowsPath(file));
    const bytes = readFileSync(file);
    await probe.send('discard', result.path);
    assert.deepEqual(probe.leftovers(), []);
    return bytes;
}

function assertFailed(result, message) {
    assert.equal(result.message, message);
    assert.equal(result.path, '');
    assert.deepEqual(probe.leftovers(), []);
}

/** Reports go up, from nothing of `total` to everything. */
function assertProgress(progress, total, size) {
    assert.deepEqual(progress[0], [0, total]);
    const done = progress.map(([bytes]) => bytes);
    assert.deepEqual(done, done.toSorted((a, b) => a - b));
    assert.ok(progress.slice(0, -1).every(([, of]) => of === total));
    assert.deepEqual(progress.at(-1), [size, Math.max(total, size)]);
}

test('the installer arrives, with progress, from the address as it stands', async () => {
    const result = await downloadFrom(body(installer));
    assert.deepEqual(await takeInstaller(result), installer);
    assertProgress(result.progress, installer.length, installer.length);
    assert.deepEqual(server.requests, [
        { host: webHost, path: '/download/setup.exe?build=1', method: 'GET', agent: 'Ravelin-Update/1.0' },
    ]);
});

test('every download has a folder of its own', async () => {
    const first = await downloadFrom(body(installer));
    const second = await downloadFrom(body(installer));
    assert.equal(probe.leftovers().length, 2);
    assert.notEqual(first.path, second.path);
    for (const { path: installerPath } of [first, second]) await probe.send('discard', installerPath);
});

test('a digest in upper case matches', async () => {
    await takeInstaller(await downloadFrom(body(installer), { sha256: digest.toUpperCase() }));
});

test('a length that is not declared is known at the end', async () => {
    const result = await downloadFrom(unannounced(installer));
    assert.deepEqual(await takeInstaller(result), installer);
    assertProgress(result.progress, 0, installer.length);
});

test('a slow download is reported ten times a second at most', async () => {
    const pieces = 40;
    const result = await downloadFrom((request, response) => {
        response.writeHead(200, { 'content-length': installer.length });
        let sent = 0;
        const more = () => {
            const end = Math.round((installer.length * ++sent) / pieces);
            response.write(installer.subarray(Math.round((installer.length * (sent - 1)) / pieces), end));
            if (sent < pieces) setTimeout(more, 30);
            else response.end();
        };
        more();
    });
    assert.deepEqual(await takeInstaller(result), installer);
    assertProgress(result.progress, installer.length, installer.length);
    // 1.2 s in forty pieces: a report for each would be forty.
    assert.ok(result.progress.length < 30, `${result.progress.length} reports`);
});

test('exactly 209715200 bytes are not too many', async () => {
    const hash = createHash('sha256');
    for (let i = 0; i < 200; ++i) hash.update(Buffer.alloc(1 << 20));
    const result = await downloadFrom(zeros(most), { sha256: hash.digest('hex') });
    assert.equal((await takeInstaller(result)).length, most);
    assertProgress(result.progress, most, most);
});

test('a redirect over HTTPS is followed', async () => {
    server.on(`https://${apiHost}/mirror.exe`, body(installer));
    assert.deepEqual(await takeInstaller(await downloadFrom(redirect(`https://${apiHost}/mirror.exe`))), installer);
});

test('folder and file are kept from everybody but administrators and the system', async () => {
    const { message, path: installerPath } = await downloadFrom(body(installer));
    assert.equal(message, '');
    const folder = path.join(probe.temp, probe.leftovers()[0]);
    // As access lists come out below Wine: what nobody else is granted, nobody else may do.
    const forOthers = (file) => statSync(file).mode & 0o007;
    assert.deepEqual([forOthers(folder), forOthers(path.join(folder, 'installer.exe'))], [0, 0]);
    writeFileSync(path.join(probe.temp, 'any'), '');
    assert.notEqual(forOthers(path.join(probe.temp, 'any')), 0, 'files are open to others unless they are kept from them');
    rmSync(path.join(probe.temp, 'any'));
    await probe.send('discard', installerPath);
});

test('behind a redirect to a foreign host the digest decides', async () => {
    const elsewhere = `https://${unrelatedHost}/mirror.exe`;
    await server.use(makeCertificate(authority, [webHost, unrelatedHost]));
    try {
        server.on(elsewhere, body(installer));
        assert.deepEqual(await takeInstaller(await downloadFrom(redirect(elsewhere))), installer);
        assert.deepEqual(server.requests.map(({ host }) => host), [webHost, unrelatedHost]);
        server.on(elsewhere, body(randomBytes(installer.length)));
        assertFailed(await downloadFrom(redirect(elsewhere)), messages.match);
    } finally {
        await server.use(certificate);
    }
});

test('a foreign host without a certificate of its own is not asked behind a redirect', async () => {
    server.on(`https://${unrelatedHost}/mirror.exe`, body(installer));
    assertFailed(await downloadFrom(redirect(`https://${unrelatedHost}/mirror.exe`)), messages.download);
    assert.deepEqual(server.requests.map(({ host }) => host), [webHost]);
});

function failing(name, message, handler, options) {
    test(name, async () => {
        assertFailed(await downloadFrom(handler, options), message);
        assert.ok(server.requests.length > 0, 'the server was asked');
    });
}

// Never a file.
failing('404', messages.download, status(404));
failing('503', messages.download, status(503));
failing('204', messages.download, (request, response) => response.writeHead(204).end());
failing('part of the file as status 206', messages.download, (request, response) => response.writeHead(206, { 'content-length': 3 }).end('abc'));
failing('a redirect to nowhere', messages.download, redirect(`https://${apiHost}/missing.exe`));
failing('an endless redirect', messages.download, redirect(url));
failing('a connection that breaks before the answer', messages.download, (request) => request.socket.destroy());

test('a redirect to plain http', async () => {
    server.on(`https://${webHost}/plain.exe`, body(installer));
    assertFailed(await downloadFrom(redirect(`http://${webHost}/plain.exe`)), messages.download);
    assert.deepEqual(server.plainRequests, []);
});

// Too much.
test('one byte more than 209715200 is refused when it is declared', async () => {
    const result = await downloadFrom(zeros(most + 1));
    assertFailed(result, messages.download);
    assert.deepEqual(result.progress, [], 'nothing was begun');
});
test('an endless body is cut off behind 209715200 bytes', async () => {
    const result = await downloadFrom(zeros(Infinity, null));
    assertFailed(result, messages.download);
    const [received] = result.progress.at(-1);
    assert.ok(received > most / 2 && received <= most, `${received} bytes reported`);
});
failing('a declared length beyond all numbers', messages.download, (request, response) => {
    response.socket.end(`HTTP/1.1 200 OK\r\nContent-Length: 99999999999999999999999\r\n\r\nabc`);
});

// Another file.
failing('another file of the same length', messages.match, body(Buffer.alloc(installer.length)));
failing('one bit changed', messages.match, body(Buffer.concat([Buffer.from([installer[0] ^ 1]), installer.subarray(1)])));
failing('one byte more', messages.match, body(Buffer.concat([installer, Buffer.from('x')])));
failing('an empty file', messages.match, body(''));
failing('a file that is cut short', messages.match, cutShort(installer.subarray(0, 100_000), installer.length));
failing('a file that is cut short without a declared length', messages.match, unannounced(installer.subarray(0, 100_000)));
failing('a server that stalls in the file', messages.match, stall(installer.subarray(0, 100_000), installer.length));
failing('a digest that is none', messages.match, body(installer), { sha256: 'none' });

// Where the client stops reading is its own affair; what it keeps must be what was signed.
test('a length declared too small', async () => {
    const lying = (request, response) => response.writeHead(200, { 'content-length': 1000, connection: 'close' }).end(installer);
    const result = await downloadFrom(lying);
    if (result.message === '') {
        assert.deepEqual(await takeInstaller(result), installer);
    } else {
        assertFailed(result, messages.match);
    }
    assertFailed(await downloadFrom(lying, { sha256: digestOf(installer.subarray(0, 999)) }), messages.match);
});

// Stopped.
test('stopped at the first report, nothing is read', async () => {
    const result = await downloadFrom(body(installer), { stopAt: 1 });
    assertFailed(result, messages.download);
    assert.deepEqual(result.progress, [[0, installer.length]]);
});
test('stopped at a later report', async () => {
    const result = await downloadFrom(zeros(most), { stopAt: 2 });
    assertFailed(result, messages.download);
    assert.equal(result.progress.length, 2);
    assert.ok(result.progress[1][0] > 0 && result.progress[1][0] < most);
});

// Servers that are not who they say.
function distrusted(name, certificateOf) {
    test(name, async () => {
        await server.use(certificateOf());
        try {
            assertFailed(await downloadFrom(body(installer)), messages.download);
            assert.deepEqual(server.requests, [], 'nothing is asked of a server that is not trusted');
        } finally {
            await server.use(certificate);
        }
    });
}
distrusted('a certificate that nobody trusts', () => makeCertificate(makeAuthority('stranger'), [webHost]));
distrusted('a certificate for another host', () => makeCertificate(authority, [unrelatedHost]));
distrusted('a certificate that has expired', () => makeCertificate(authority, [webHost], { expired: true }));

// Addresses.
for (const address of [`http://${webHost}/setup.exe`, `HTTPS://${webHost}/setup.exe`, `ftp://${webHost}/setup.exe`, 'setup.exe']) {
    test(`no link: ${address}`, async () => {
        assertFailed(await probe.download(address, digest), messages.link);
        assert.deepEqual([server.requests, server.plainRequests], [[], []]);
    });
}
for (const address of ['https://', 'https:///setup.exe', `https://${webHost}:99999/setup.exe`, `https://${webHost}:444/setup.exe`, 'https://nowhere.invalid/setup.exe']) {
    test(`no server: ${address}`, async () => {
        assertFailed(await probe.download(address, digest), messages.download);
    });
}

// The disk.
async function withTemp(folder, action) {
    await probe.useTemp(folder);
    try {
        await action();
    } finally {
        await probe.useTemp(windowsPath(probe.temp));
    }
}

test('a folder that cannot be made', async () => {
    await withTemp(windowsPath(path.join(probe.temp, 'missing')), async () => {
        assertFailed(await downloadFrom(body(installer)), messages.folder);
        assert.deepEqual(server.requests, []);
    });
});

test('a temporary folder that cannot be told', async () => {
    await withTemp('C:\\' + 'x'.repeat(300), async () => {
        assertFailed(await downloadFrom(body(installer)), messages.temporary);
        assert.deepEqual(server.requests, []);
    });
});

test('no handle stays open, whatever came', async () => {
    const cases = [body(installer), body(''), status(404), cutShort(installer.subarray(0, 10), 100), redirect(`http://${webHost}/`)];
    const round = async () => {
        for (const handler of cases) {
            for (const stopAt of [0, 1, 2]) {
                const result = await downloadFrom(handler, { stopAt });
                if (result.path) await probe.send('discard', result.path);
            }
        }
        return await probe.handles();
    };
    // The first rounds fill what the system keeps for later.
    await round();
    const earlier = await round();
    for (let i = 0; i < 3; ++i) await round();
    const later = await round();
    assert.ok(later <= earlier + 2, `${earlier} handles became ${later}`);
});
