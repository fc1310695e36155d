// What the check for an update makes of everything that can come from the manifest's address.
import assert from 'node:assert/strict';
import { mkdirSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test, { after, before, beforeEach } from 'node:test';
import { makePrivateKey, signedMessage, signMessage } from '../../packaging/update_signing.mjs';
import { scratch, windowsPath } from '../e2e/lib/wine.mjs';
import { makeAuthority, makeCertificate } from './lib/certificates.mjs';
import { Probe } from './lib/probe.mjs';
import { apiHost, goodMembers, key, signedManifest, tier, unrelatedHost, version, webHost } from './lib/product.mjs';
import { body, cutShort, redirect, Server, silence, stall, status, unannounced, zeros } from './lib/server.mjs';

const manifestUrl = `https://${webHost}/update/${tier}.json`;
const hosts = [webHost, apiHost];
const authority = makeAuthority('trusted');
const certificate = makeCertificate(authority, hosts);

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

/** What the check says when this is behind the manifest's address. */
async function checkWith(handler) {
    server.on(manifestUrl, typeof handler === 'function' ? handler : body(typeof handler === 'string' ? handler : JSON.stringify(handler)));
    const result = await probe.check();
    assert.deepEqual(probe.leftovers(), []);
    return result;
}

const nothing = { available: false, ownVersion: version, tier: '', version: '', url: '', sha256: '', sig: '' };

function refused(name, handler) {
    test(`no update: ${name}`, async () => {
        assert.deepEqual(await checkWith(handler), nothing);
        assert.ok(server.requests.length > 0, 'the server was asked');
    });
}

function accepted(name, manifest, handler = manifest) {
    test(`an update: ${name}`, async () => {
        assert.deepEqual(await checkWith(handler), { available: true, ownVersion: version, ...manifest });
    });
}

test('the manifest is asked for once, by its own user agent', async () => {
    await checkWith(signedManifest());
    assert.deepEqual(server.requests, [
        { host: webHost, path: `/update/${tier}.json`, method: 'GET', agent: 'Ravelin-Update/1.0' },
    ]);
});

const good = signedManifest();
accepted('signed and newer', good);
accepted('from the other host', signedManifest({ url: `https://${apiHost}/download/setup.exe?x=1#y` }));
accepted('the signature in upper case', { ...good, sig: good.sig.toUpperCase() });
accepted('a pre-release of a newer version', signedManifest({ version: '99999.0.0-beta.1' }));
accepted('members in another order, others between them', good,
    JSON.stringify({ notes: ['x'], sig: good.sig, sha256: good.sha256, more: {}, url: good.url, version: good.version, tier: good.tier }));
accepted('the first of duplicate members counts', good,
    JSON.stringify(good).replace(/\}$/, `,"version":"9.9.9","url":"https://${unrelatedHost}/x.exe","sig":"00"}`));
accepted('escaped letters and slashes', good,
    JSON.stringify(good).replace(`"${tier}"`, `"\\u00${tier.charCodeAt(0).toString(16)}${tier.slice(1)}"`).replaceAll('/', '\\/'));
accepted('without a declared length', good, unannounced(JSON.stringify(good)));
accepted('16384 bytes', good, JSON.stringify(good).padEnd(16384));
accepted('redirected to another address over HTTPS', good, (request, response) => {
    server.on(`https://${apiHost}/moved.json`, body(JSON.stringify(good)));
    redirect(`https://${apiHost}/moved.json`)(request, response);
});

// The signature.
const { sig, ...unsigned } = good;
refused('unsigned', unsigned);
refused('an empty signature', { ...unsigned, sig: '' });
refused('signed with another key', signedManifest({}, makePrivateKey()));
refused('a signature of 63 bytes', { ...unsigned, sig: sig.slice(2) });
refused('a signature of 65 bytes', { ...unsigned, sig: sig + '00' });
refused('a signature that is no hexadecimal', { ...unsigned, sig: 'g' + sig.slice(1) });
refused('a signature of zeros', { ...unsigned, sig: '0'.repeat(128) });
refused('a signature over the line with its line break', { ...unsigned, sig: signMessage(signedMessage(unsigned) + '\n', key) });
refused('the tier changed', { ...signedManifest({ tier: 'studio' }), tier });
refused('the version changed', { ...good, version: '99999.0.1' });
refused('the url changed', { ...good, url: `https://${webHost}/Setup.exe` });
refused('the digest changed', { ...good, sha256: '1' + good.sha256.slice(1) });

/** Refused although the signature fits: the signed line is the same, its members end elsewhere. */
function refusedMoved(name, signed, moved) {
    assert.equal(signedMessage(moved), signedMessage(signed));
    refused(`members moved across the separator: ${name}`, { ...signed, ...moved });
}
const zeroes = good.sha256;
const endOfUrl = signedManifest({ url: `https://${webHost}/setup.exe|${zeroes}` });
refusedMoved('the end of the url into the digest', endOfUrl, { ...endOfUrl, url: `https://${webHost}/setup.exe`, sha256: `${zeroes}|${zeroes}` });
const twoUrls = signedManifest({ url: `https://${unrelatedHost}|https://${webHost}/setup.exe` });
refusedMoved('the beginning of the url into the version', twoUrls, { ...twoUrls, version: `99999.0.0|https://${unrelatedHost}`, url: `https://${webHost}/setup.exe` });
const twoVersions = signedManifest({ version: '1.2.3|99999.0.0' });
refusedMoved('the beginning of the version into the tier', twoVersions, { ...twoVersions, tier: `${tier}|1.2.3`, version: '99999.0.0' });
const endOfVersion = signedManifest({ version: `99999.0.0|https://${webHost}/` });
refusedMoved('the end of the version into the url', endOfVersion, { ...endOfVersion, version: '99999.0.0', url: `https://${webHost}/|https://${webHost}/setup.exe` });

// What is signed and yet not for this build.
refused('another tier', signedManifest({ tier: 'studio' }));
refused('an unknown tier', signedManifest({ tier: 'gold' }));
refused('the equal version', signedManifest({ version }));
refused('an older version', signedManifest({ version: '0.9.9' }));
refused('a pre-release of the own version', signedManifest({ version: `${version}-beta.3` }));
refused('a version that is none', signedManifest({ version: 'latest' }));
refused('a digest in upper case', signedManifest({ sha256: 'A'.repeat(64) }));
refused('a digest of 63 digits', signedManifest({ sha256: '0'.repeat(63) }));
refused('a url with a blank', signedManifest({ url: `https://${webHost}/a b.exe` }));
refused('a url with a bar', signedManifest({ url: `https://${webHost}/a|b.exe` }));
refused('a url with a control character', signedManifest({ url: `https://${webHost}/a\n.exe` }));
refused('a url outside ASCII', signedManifest({ url: `https://${webHost}/\u00e4.exe` }));
refused('a plain url', signedManifest({ url: `http://${webHost}/setup.exe` }));
refused('a url on another host', signedManifest({ url: `https://${unrelatedHost}/setup.exe` }));
refused('a url behind a user name', signedManifest({ url: `https://${webHost}@${unrelatedHost}/setup.exe` }));
refused('a url with a port', signedManifest({ url: `https://${webHost}:8443/setup.exe` }));
refused('a url on a look-alike host', signedManifest({ url: `https://${webHost}.${unrelatedHost}/setup.exe` }));

// The text.
refused('nothing at all', '');
refused('no JSON', '<html>Welcome to this hotspot</html>');
refused('a member that is no string', JSON.stringify({ ...good, tier: 1 }));
refused('a value that is never closed', JSON.stringify(good).slice(0, -2));
refused('a zero byte in the tier', JSON.stringify({ ...good, tier: `${tier}\0` }));
refused('an escaped zero in the digest', JSON.stringify(good).replace('"sha256":"0', '"sha256":"\\u0000'));
refused('half a surrogate pair in the url', JSON.stringify(signedManifest()).replace('/setup', '/\\ud800setup'));
refused('the bad one of duplicate members first',
    JSON.stringify(good).replace('{', '{"version":"9.9.9",'));
refused('16385 bytes', JSON.stringify(good).padEnd(16385));
refused('UTF-16', (request, response) => body(Buffer.from(JSON.stringify(good), 'utf16le'))(request, response));

// The network.
refused('404', status(404));
refused('500', status(500));
refused('204', (request, response) => response.writeHead(204).end());
refused('a redirect to nowhere', redirect(`https://${apiHost}/missing.json`));
refused('an endless redirect', redirect(manifestUrl));
refused('an endless body', zeros(Infinity, null));
refused('a longer body than a manifest may have', zeros(20 << 20));
refused('a body that is cut short', cutShort(JSON.stringify(good).slice(0, 40), JSON.stringify(good).length));
refused('a server that never answers', silence());
refused('a server that stalls in the body', stall(JSON.stringify(good).slice(0, 40), JSON.stringify(good).length));

test('no update: a redirect to plain http', async () => {
    server.on(`https://${webHost}/plain.json`, body(JSON.stringify(good)));
    assert.deepEqual(await checkWith(redirect(`http://${webHost}/plain.json`)), nothing);
    assert.deepEqual(server.plainRequests, []);
});

test('behind a redirect to a foreign host the signature decides', async () => {
    const elsewhere = `https://${unrelatedHost}/moved.json`;
    await server.use(makeCertificate(authority, [webHost, unrelatedHost]));
    try {
        server.on(elsewhere, body(JSON.stringify(good)));
        assert.deepEqual(await checkWith(redirect(elsewhere)), { available: true, ownVersion: version, ...good });
        assert.deepEqual(server.requests.map(({ host }) => host), [webHost, unrelatedHost]);
        server.on(elsewhere, body(JSON.stringify(signedManifest({}, makePrivateKey()))));
        assert.deepEqual(await checkWith(redirect(elsewhere)), nothing);
    } finally {
        await server.use(certificate);
    }
});

test('a foreign host without a certificate of its own is not asked behind a redirect', async () => {
    server.on(`https://${unrelatedHost}/moved.json`, body(JSON.stringify(good)));
    assert.deepEqual(await checkWith(redirect(`https://${unrelatedHost}/moved.json`)), nothing);
    assert.deepEqual(server.requests.map(({ host }) => host), [webHost]);
});

function distrusted(name, certificateOf) {
    test(`no update: ${name}`, async () => {
        await server.use(certificateOf());
        try {
            assert.deepEqual(await checkWith(good), nothing);
            assert.deepEqual(server.requests, [], 'nothing is asked of a server that is not trusted');
        } finally {
            await server.use(certificate);
        }
    });
}

distrusted('a certificate that nobody trusts', () => makeCertificate(makeAuthority('stranger'), hosts));
distrusted('a certificate for another host', () => makeCertificate(authority, [unrelatedHost]));
distrusted('a certificate that has expired', () => makeCertificate(authority, hosts, { expired: true }));

test('no update: nobody listens', async () => {
    await server.close();
    try {
        assert.deepEqual(await probe.check(), nothing);
    } finally {
        server = await Server.open(certificate);
    }
});

// The source of the manifest for one run.
async function checkFrom(source) {
    await probe.useSource(source);
    try {
        return await probe.check();
    } finally {
        await probe.useSource();
    }
}

test('another source: an address', async () => {
    server.on(`https://${unrelatedHost}/staging.json`, body(JSON.stringify(good)));
    await server.use(makeCertificate(authority, [unrelatedHost]));
    try {
        assert.equal((await checkFrom(`https://${unrelatedHost}/staging.json`)).available, true);
    } finally {
        await server.use(certificate);
    }
});

test('another source: plain http is never fetched', async () => {
    server.on(`https://${webHost}/staging.json`, body(JSON.stringify(good)));
    assert.deepEqual(await checkFrom(`http://${webHost}/staging.json`), nothing);
    assert.deepEqual(await checkFrom(`http://${webHost}:443/staging.json`), nothing);
    assert.deepEqual(server.requests, []);
    assert.deepEqual(server.plainRequests, []);
});

test('another source: a file', async () => {
    const file = path.join(scratch, 'manifest.json');
    mkdirSync(scratch, { recursive: true });
    for (const [text, available] of [[JSON.stringify(good), true], ['', false],
        [JSON.stringify(good).padEnd(16385), false], [JSON.stringify(goodMembers()), false]]) {
        writeFileSync(file, text);
        assert.equal((await checkFrom(windowsPath(file))).available, available);
    }
    assert.deepEqual(await checkFrom(windowsPath(file + '.missing')), nothing);
    assert.deepEqual(server.requests, []);
});

test('no handle stays open, whatever came', async () => {
    const cases = [good, '', status(404), cutShort('{', 100), zeros(20 << 20), redirect(`http://${webHost}/`)];
    const round = async () => {
        for (const handler of cases) await checkWith(handler);
        return await probe.handles();
    };
    // The first rounds fill what the system keeps for later.
    await round();
    const before = await round();
    for (let i = 0; i < 5; ++i) await round();
    assert.ok(await round() <= before + 2, `${before} handles became ${await probe.handles()}`);
});
