// The console modes of the real executable, with their output redirected.
import assert from 'node:assert/strict';
import { mkdirSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test from 'node:test';
import { runToEnd, scratch, windowsPath } from './lib/wine.mjs';

const folder = path.join(scratch, 'console');
mkdirSync(folder, { recursive: true });

function file(name, text) {
    const place = path.join(folder, name);
    writeFileSync(place, text);
    return windowsPath(place);
}

async function ravelin(...args) {
    const { code, output } = await runToEnd('Ravelin.exe', args);
    return { code, lines: output.replaceAll('\r\n', '\n') };
}

const goodMacro = file('good.rvnmacro', 'Sample\n3,0.5,0,0,0,65,1,0\n3,0.6,0,0,0,65,0,0\n');

test('a good macro is counted', async () => {
    assert.deepEqual(await ravelin('--validate-macro=' + goodMacro), { code: 0, lines: 'OK 2 events\n' });
});

test('a macro that is not there is rejected', async () => {
    assert.deepEqual(await ravelin('--validate-macro=' + windowsPath(path.join(folder, 'none'))),
        { code: 1, lines: "REJECT Couldn't open that macro file.\n" });
});

test('an empty macro is rejected', async () => {
    assert.deepEqual(await ravelin('--validate-macro=' + file('empty.rvnmacro', '')),
        { code: 1, lines: 'REJECT That macro file is missing its profile name.\n' });
});

test('a scan of no path at all is rejected with the reader\'s message', async () => {
    assert.deepEqual(await ravelin('--scan-macro='), { code: 1, lines: "REJECT Couldn't open that macro file.\n" });
});

test('the scan report ends with one line feed', async () => {
    const { code, lines } = await ravelin('--scan-macro=' + goodMacro);
    assert.equal(code, 0);
    assert.match(lines, /^\{.*\}\n$/s);
    JSON.parse(lines);
});

test('the theme check goes before the macro check, and the last value of a switch counts', async () => {
    const theme = file('not-a-theme.json', '[]');
    const { code, lines } = await ravelin('--validate-macro=' + goodMacro, '--validate-theme=C:\\none', '--validate-theme=' + theme);
    assert.equal(code, 1);
    assert.match(lines, /^REJECT .+\n$/);
    assert.doesNotMatch(lines, /macro/);
});

test('a self-test without vectors fails with its closing line', async () => {
    const { code, lines } = await ravelin('--selftest-update=');
    assert.equal(code, 1);
    assert.match(lines, /SELFTEST-UPDATE: FAILURES ABOVE\n$|^REJECT .+\n$/);
});
