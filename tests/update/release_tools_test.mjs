// The tools that a release is made with, against the real program.
import assert from 'node:assert/strict';
import { execFileSync, spawnSync } from 'node:child_process';
import { existsSync, mkdirSync, mkdtempSync, readFileSync, rmSync, statSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import path from 'node:path';
import test, { after, before } from 'node:test';
import { build, root, runToEnd, scratch, windowsPath } from '../e2e/lib/wine.mjs';
import { Probe } from './lib/probe.mjs';
import { apiHost, productOf, tier, unrelatedHost, webHost } from './lib/product.mjs';

const tools = path.join(root, 'packaging');
const folder = path.join(scratch, 'release');
let probe;

before(async () => {
    rmSync(folder, { recursive: true, force: true });
    mkdirSync(folder, { recursive: true });
    probe = await Probe.open();
});
after(async () => await probe?.close());

/** Runs a tool; gives its exit code and what it said. */
function run(tool, ...args) {
    const { status, stdout, stderr } = spawnSync('node', [path.join(tools, tool), ...args], { encoding: 'utf8', timeout: 30_000 });
    return { status, stdout, stderr };
}

function makeVectors() {
    const file = path.join(folder, 'vectors.txt');
    assert.equal(run('make_vectors.mjs', '--web-host', webHost, '--api-host', apiHost, '--out', file).status, 0);
    return file;
}

function selfTest(file) {
    return runToEnd('Ravelin.exe', [`--selftest-update=${windowsPath(file)}`]);
}

test('the program passes the vectors that are made for it', async () => {
    const { code, output } = await selfTest(makeVectors());
    assert.equal(code, 0, output);
    const lines = output.replaceAll('\r', '').trimEnd().split('\n');
    assert.equal(lines.at(-1), 'SELFTEST-UPDATE: ALL PASS');
    assert.ok(lines.length > 45 && lines.slice(0, -1).every((line) => line.startsWith('PASS ')), output);
});

test('a verdict that is expected the wrong way round fails and nothing else', async () => {
    const file = makeVectors();
    const lines = readFileSync(file, 'utf8').trimEnd().split('\n').map((line) => JSON.parse(line));
    for (const wrong of [lines.find((line) => line.expect === true), lines.find((line) => line.expect === false)]) {
        writeFileSync(file, lines.map((line) => JSON.stringify(line === wrong ? { ...line, expect: !line.expect } : line)).join('\n'));
        const { code, output } = await selfTest(file);
        assert.equal(code, 1);
        assert.deepEqual(output.replaceAll('\r', '').split('\n').filter((line) => line.startsWith('FAIL')), [`FAIL ${wrong.name}`]);
        assert.match(output, /SELFTEST-UPDATE: FAILURES ABOVE/);
    }
});

test('two vectors files are signed with two keys', () => {
    const first = readFileSync(makeVectors(), 'utf8');
    assert.notEqual(readFileSync(makeVectors(), 'utf8').split('\n')[0], first.split('\n')[0]);
});

const installer = path.join(folder, 'setup.exe');
const manifest = path.join(folder, 'manifest.json');
const good = {
    key: path.join(build, 'update-key/private.pem'), installer, tier, version: productOf('next').version,
    url: `https://${webHost}/download/setup.exe`, out: manifest,
};

function sign(changes = {}) {
    writeFileSync(installer, 'an installer');
    rmSync(manifest, { force: true });
    return run('sign_manifest.mjs', ...Object.entries({ ...good, ...changes }).flatMap(([name, value]) => [`--${name}`, value]));
}

async function check() {
    await probe.useSource(windowsPath(manifest));
    try {
        return await probe.check();
    } finally {
        await probe.useSource();
    }
}

test('the program accepts a manifest that is signed for it', async () => {
    const { status, stderr } = sign();
    assert.equal(status, 0, stderr);
    const result = await check();
    assert.equal(result.available, true);
    assert.deepEqual([result.version, result.url], [good.version, good.url]);
    const digest = execFileSync('sha256sum', [installer], { encoding: 'utf8' }).slice(0, 64);
    assert.equal(result.sha256, digest);
});

test('a pre-release is offered the final version and later pre-releases, and never itself again', async () => {
    const own = productOf('beta').version;
    const [release, number] = own.split('-beta.');
    assert.equal(release, productOf('next').version);
    const beta = await Probe.open('update_probe_beta.exe');
    try {
        await beta.useSource(windowsPath(manifest));
        for (const [version, available] of [
            [release, true], [`${release}-beta.${Number(number) + 1}`, true], [own, false],
            [`${release}-beta.0`, false], [productOf().version, false],
        ]) {
            assert.equal(sign({ version }).status, 0);
            const result = await beta.check();
            assert.deepEqual([version, result.available], [version, available]);
            assert.equal(result.ownVersion, own);
        }
    } finally {
        await beta.close();
    }
});

test('the program refuses a manifest that is signed with a key made elsewhere', async () => {
    const elsewhere = mkdtempSync(path.join(tmpdir(), 'ravelin-key-'));
    try {
        assert.equal(run('make_key.mjs', path.join(elsewhere, 'key')).status, 0);
        assert.equal(sign({ key: path.join(elsewhere, 'key/private.pem') }).status, 0);
        assert.equal((await check()).available, false);
    } finally {
        rmSync(elsewhere, { recursive: true });
    }
});

for (const [name, changes] of Object.entries({
    'a version that no build reads': { version: '1.0' },
    'a tier that is no word': { tier: 'Home!' },
    'plain http': { url: `http://${webHost}/setup.exe` },
    'a port': { url: `https://${webHost}:8443/setup.exe` },
    'a user name': { url: `https://${webHost}@${unrelatedHost}/setup.exe` },
    'a blank in the address': { url: `https://${webHost}/set up.exe` },
})) {
    test(`nothing is signed with ${name}`, () => {
        const { status, stderr } = sign(changes);
        assert.equal(status, 1);
        assert.notEqual(stderr, '');
        assert.equal(existsSync(manifest), false);
    });
}

test('a key is made for its owner alone and never replaced', () => {
    const elsewhere = mkdtempSync(path.join(tmpdir(), 'ravelin-key-'));
    try {
        const { status, stdout } = run('make_key.mjs', elsewhere);
        assert.equal(status, 0);
        const file = path.join(elsewhere, 'private.pem');
        assert.equal(statSync(file).mode & 0o777, 0o600);
        const point = readFileSync(path.join(elsewhere, 'public.txt'), 'utf8').trim();
        assert.match(point, /^[0-9a-f]{128}$/);
        assert.equal(stdout.trim(), `RAVELIN_UPDATE_KEY=${point}`);
        const before = readFileSync(file);
        assert.equal(run('make_key.mjs', elsewhere).status, 1);
        assert.deepEqual(readFileSync(file), before);
    } finally {
        rmSync(elsewhere, { recursive: true });
    }
});

test('a private key never comes to lie among versioned files', () => {
    const inside = path.join(root, 'packaging/key-of-a-test');
    const { status } = run('make_key.mjs', inside);
    assert.equal(status, 1);
    assert.equal(existsSync(inside), false);
});
