// What a build is called: the defaults of cmake/product.cmake in folders that are configured again.
import assert from 'node:assert/strict';
import { execFileSync, spawnSync } from 'node:child_process';
import { cpSync, mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test, { afterEach, beforeEach } from 'node:test';
import { root, scratch } from '../e2e/lib/wine.mjs';

const options = [...readFileSync(path.join(root, 'cmake/product.cmake'), 'utf8').matchAll(/^product_option\((\w+)\s+"(.*?)"/gm)]
    .map(([, name, value]) => ({ name, value }));
const files = ['product.h', 'product.json', 'product.nsh', 'product_version.h'];

let folder, source, build;

beforeEach(() => {
    folder = mkdtempSync(path.join(scratch, 'product-'));
    source = path.join(folder, 'source');
    build = path.join(folder, 'build');
    mkdirSync(source);
    cpSync(path.join(root, 'cmake'), path.join(source, 'cmake'), { recursive: true });
    writeFileSync(path.join(source, 'CMakeLists.txt'), `
cmake_minimum_required(VERSION 3.25)
project(Product LANGUAGES NONE)
include(cmake/product.cmake)
`);
});
afterEach(() => rmSync(folder, { recursive: true }));

const key = `-DRAVELIN_UPDATE_KEY=${'0123456789abcdef'.repeat(8)}`;

function configure(...settings) {
    return spawnSync('cmake', ['-G', 'Ninja', '-S', source, '-B', build, key, ...settings], { encoding: 'utf8', timeout: 60_000 });
}

function configured(...settings) {
    const { status, stderr } = configure(...settings);
    assert.equal(status, 0, stderr);
    return product();
}

/** Everything that the build is told. */
function told() {
    return files.map((name) => readFileSync(path.join(build, 'generated', name), 'utf8')).join('\n');
}

function product() {
    return JSON.parse(readFileSync(path.join(build, 'generated/product.json'), 'utf8'));
}

function setDefault(name, value) {
    const file = path.join(source, 'cmake/product.cmake');
    const text = readFileSync(file, 'utf8');
    const changed = text.replace(new RegExp(`^(product_option\\(${name}\\s+)".*?"`, 'm'), (_, before) => `${before}"${value}"`);
    assert.notEqual(changed, text);
    writeFileSync(file, changed);
}

/** What `./dev build` does in a folder that is configured: the build system notices the change. */
function buildAgain() {
    execFileSync('cmake', ['--build', build], { timeout: 60_000, stdio: 'pipe' });
    return product();
}

test('a raised version takes effect in a folder that is configured', () => {
    assert.equal(configured().version, options[0].value);
    setDefault('RAVELIN_VERSION', '1.7.0');
    assert.equal(buildAgain().version, '1.7.0');
    setDefault('RAVELIN_VERSION', '1.8.0-beta.2');
    assert.equal(buildAgain().version, '1.8.0-beta.2');
    assert.match(told(), /windowTitle\[\] = "Ravelin \(Home Version 1\.8\.0-beta\.2\)"/);
});

// Words that are right in each option's place.
const others = { RAVELIN_VERSION: '2.3.4', RAVELIN_TIER: 'studio', RAVELIN_TIER_WORDS: 'home;other', RAVELIN_WEB_HOST: 'other.example', RAVELIN_API_HOST: 'api.other.example' };

for (const { name, value } of options) {
    const other = others[name] ?? 'another one';

    test(`a changed default of ${name} takes effect in a folder that is configured`, () => {
        configured();
        const before = told();
        setDefault(name, other);
        buildAgain();
        const after = told();
        assert.notEqual(after, before);
        setDefault(name, value);
        buildAgain();
        assert.equal(told(), before);
    });

    test(`a value of ${name} that a folder was given stays whatever the default`, () => {
        configured(`-D${name}=${other}`);
        const given = told();
        setDefault(name, name === 'RAVELIN_TIER' ? 'portable' : name === 'RAVELIN_TIER_WORDS' ? 'home;gold' : other.replace(/.$/, '5'));
        buildAgain();
        assert.equal(told(), given);
    });
}

test('a folder that was configured when nothing was remembered follows from then on', () => {
    // Such a folder has the defaults of its time in its cache, and no more.
    configured(...options.map(({ name, value }) => `-D${name}:STRING=${value}`), ...options.map(({ name }) => `-U${name}_DEFAULT`));
    setDefault('RAVELIN_VERSION', '1.7.0');
    assert.equal(buildAgain().version, '1.7.0');
});

test('a value can be given up again', () => {
    assert.equal(configured('-DRAVELIN_WEB_HOST=given.example').webHost, 'given.example');
    assert.equal(configured('-URAVELIN_WEB_HOST').webHost, options.find(({ name }) => name === 'RAVELIN_WEB_HOST').value);
});

test('a pre-release says so wherever Windows looks', () => {
    configured('-DRAVELIN_VERSION=1.1.0-beta.1');
    const text = told();
    assert.match(text, /#define RAVELIN_VERSION_NUMBERS 1,1,0,0\n#define RAVELIN_VERSION_FLAGS VS_FF_PRERELEASE\n#define RAVELIN_VERSION_TEXT "1\.1\.0-beta\.1"/);
    assert.match(text, /!define VERSION "1\.1\.0-beta\.1"\n!define VERSION_NUMBERS "1\.1\.0\.0"/);
    configured('-DRAVELIN_VERSION=1.1.0');
    assert.match(told(), /#define RAVELIN_VERSION_FLAGS 0\n/);
});

for (const version of ['1.0', '1.0.1.0', 'v1.0.1', '1.0.1-rc.1', '1.0.1-beta', '1.0.1-beta.', '1.0.1-beta.1.2', '1.0.01', '1.0.100000', '65536.0.0', '1.0.1-beta.100000', '1.0.x']) {
    test(`a build of version ${version} is refused`, () => {
        const { status, stderr } = configure(`-DRAVELIN_VERSION=${version}`);
        assert.notEqual(status, 0);
        assert.match(stderr, /RAVELIN_VERSION/);
    });
}

for (const version of ['0.0.0', '65535.65535.65535', '1.0.1-beta.0', '1.0.1-beta.99999']) {
    test(`a build of version ${version} is possible`, () => {
        assert.equal(configured(`-DRAVELIN_VERSION=${version}`).version, version);
    });
}

test('a host in upper case is refused, as no installer could come from there', () => {
    for (const name of ['RAVELIN_WEB_HOST', 'RAVELIN_API_HOST']) {
        const { status, stderr } = configure('-URAVELIN_*_HOST', `-D${name}=Ravelin.example`);
        assert.notEqual(status, 0);
        assert.match(stderr, new RegExp(name));
    }
});
