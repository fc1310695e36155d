// ./dev package: what it packs, and what it refuses to pack.
import assert from 'node:assert/strict';
import { execFileSync, spawnSync } from 'node:child_process';
import { existsSync, mkdirSync, mkdtempSync, readFileSync, readdirSync, rmSync, statSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test from 'node:test';
import { reasonsAgainst } from '../../packaging/check_release.mjs';
import { fileSha256 } from '../../packaging/update_signing.mjs';
import { build, programFolder, root, runToEnd, scratch, toolFolder } from '../e2e/lib/wine.mjs';
import { productOf, tier, version, webHost } from './lib/product.mjs';
import { shipped } from './lib/setup.mjs';

const release = path.join(build, 'package');
const trial = path.join(build, 'package-trial');
const names = {
    setup: `ravelin-setup-${version}.exe`, portable: `ravelin-${version}-portable.zip`,
    symbols: `ravelin-${version}-symbols.zip`, manifest: `${tier}.json`,
};

const dev = (...words) => spawnSync('./dev', ['package', ...words], { cwd: root, encoding: 'utf8', timeout: 350_000 });

/** Unpacks into a folder of its own. */
function unpacked(zip) {
    const folder = mkdtempSync(path.join(scratch, 'package-'));
    execFileSync('unzip', ['-q', path.join(trial, zip), '-d', folder]);
    return folder;
}

const filesBelow = (folder) => readdirSync(folder, { recursive: true }).filter((name) => statSync(path.join(folder, name)).isFile()).sort();

test('a build with the throw-away key and reserved names is refused, and nothing is packed or touched', () => {
    const marker = path.join(release, 'of-an-earlier-release');
    const was = existsSync(release);
    mkdirSync(release, { recursive: true });
    writeFileSync(marker, '');
    try {
        const { status, stdout } = dev();
        assert.equal(status, 1);
        assert.match(stdout, /throw-away key/);
        for (const host of [productOf().webHost, productOf().apiHost]) assert.match(stdout, new RegExp(`${host} is a reserved name`));
        assert.match(stdout, /\.\/dev package --trial/);
        assert.doesNotMatch(stdout, /setup program/);
        assert.ok(existsSync(marker));
    } finally {
        rmSync(was ? marker : release, { recursive: true });
    }
});

test('another word than --trial is refused', () => {
    assert.equal(dev('--trail').status, 2);
});

test('for a trial it packs the shipped files and nothing that lies beside them', async () => {
    const stray = ['stray.txt', 'ui/stray.js', 'Ravelin.debug'].map((name) => path.join(programFolder, name));
    for (const file of stray) writeFileSync(file, 'not shipped');
    try {
        const { status, stdout } = dev('--trial');
        assert.equal(status, 0, stdout);
    } finally {
        for (const file of stray) rmSync(file);
    }
    assert.deepEqual(readdirSync(trial).sort(), [...Object.values(names), 'SHA256SUMS'].sort());
    const folder = unpacked(names.portable);
    assert.deepEqual(filesBelow(path.join(folder, 'Ravelin')), [...shipped].sort());
    for (const file of shipped) {
        assert.ok(readFileSync(path.join(folder, 'Ravelin', file)).equals(readFileSync(path.join(programFolder, file))), file);
    }
    rmSync(folder, { recursive: true });

    const manifest = JSON.parse(readFileSync(path.join(trial, names.manifest), 'utf8'));
    assert.equal(manifest.url, `https://${webHost}/download/${names.setup}`);
    assert.equal(manifest.version, version);
    assert.equal(manifest.sha256, await fileSha256(path.join(trial, names.setup)));
    execFileSync('sha256sum', ['--check', '--strict', 'SHA256SUMS'], { cwd: trial, stdio: 'pipe' });
});

test('the packed program is stripped, works, and leads debuggers to its symbols', async () => {
    const program = path.join(programFolder, 'Ravelin.exe');
    const sections = execFileSync('x86_64-w64-mingw32-objdump', ['-h', program], { encoding: 'utf8' });
    assert.doesNotMatch(sections, /\.debug_/);
    assert.match(sections, /\.gnu_debuglink/);
    const symbolsOf = (file) => execFileSync('x86_64-w64-mingw32-nm', ['-C', file], { encoding: 'utf8', stdio: ['ignore', 'pipe', 'ignore'], maxBuffer: 1 << 27 });
    assert.equal(symbolsOf(program).trim(), '');
    assert.ok(statSync(program).size < 0.6 * statSync(path.join(toolFolder, 'Ravelin.exe')).size);

    const folder = unpacked(names.symbols);
    assert.deepEqual(filesBelow(folder), ['Ravelin/Ravelin.debug']);
    const symbols = path.join(folder, 'Ravelin/Ravelin.debug');
    assert.match(symbolsOf(symbols), / T ravelin::runNormally\(/);
    // What a debugger compares: the name and a CRC-32 of the whole file, as the linked section holds.
    const section = path.join(folder, 'link');
    execFileSync('x86_64-w64-mingw32-objcopy', ['--dump-section', `.gnu_debuglink=${section}`, program, path.join(folder, 'copy')]);
    const link = readFileSync(section);
    assert.equal(link.subarray(0, link.indexOf(0)).toString(), 'Ravelin.debug');
    assert.equal(link.readUInt32LE(16), crc32(readFileSync(symbols)));
    rmSync(folder, { recursive: true });

    assert.equal((await runToEnd('Ravelin.exe', ['--validate-macro=none'])).code, 1);
});

function crc32(bytes) {
    let crc = ~0;
    for (const byte of bytes) {
        crc ^= byte;
        for (let bit = 0; bit < 8; ++bit) crc = (crc >>> 1) ^ (crc & 1 ? 0xEDB88320 : 0);
    }
    return ~crc >>> 0;
}

const good = { webHost: 'ravelin.dev', apiHost: 'api.ravelin.dev', chatUrl: 'https://chat.ravelin.dev/invite', updateKey: 'ab'.repeat(64) };

test('a build with a key and names of its own is a release', () => {
    assert.deepEqual(reasonsAgainst(good, 'cd'.repeat(64)), []);
    assert.deepEqual(reasonsAgainst(good, undefined), []);
    assert.deepEqual(reasonsAgainst({ ...good, webHost: 'example.ravelin.dev', apiHost: 'testexample.com' }, undefined), []);
});

for (const host of ['ravelin.example', 'example', 'a.test', 'b.invalid', 'localhost', 'x.localhost', 'example.com', 'www.example.org', 'example.net']) {
    test(`${host} is refused wherever it stands`, () => {
        for (const changes of [{ webHost: host }, { apiHost: host }, { chatUrl: `https://${host}:444/invite` }]) {
            assert.equal(reasonsAgainst({ ...good, ...changes }, undefined).length, 1);
        }
    });
}

test('the throw-away key is refused however it is written', () => {
    assert.equal(reasonsAgainst(good, `${'AB'.repeat(64)}\n`).length, 1);
});
