// The console modes of the real executable, with their output redirected.
import assert from 'node:assert/strict';
import { mkdirSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test from 'node:test';
import { goodThemes } from './lib/themes.mjs';
import { runToEnd, scratch, toolFolder, windowsPath } from './lib/wine.mjs';

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

test('without a redirection the answer stands in the console that the program was started from', async () => {
    const inConsole = (...words) => runToEnd(windowsPath(path.join(toolFolder, 'system_tool.exe')), ['in-console', words.join(' ')]);
    assert.deepEqual(await inConsole('Ravelin.exe', '--validate-macro=' + goodMacro), { code: 0, output: 'OK 2 events' });
    assert.deepEqual(await inConsole('Ravelin.exe', '--scan-macro='), { code: 1, output: "REJECT Couldn't open that macro file." });
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

const missing = windowsPath(path.join(folder, 'none'));
const notATheme = file('not-a-theme.json', '[]');

test('the theme check goes before the macro check, and that before the scan', async () => {
    assert.deepEqual(await ravelin('--scan-macro=' + goodMacro, '--validate-macro=' + goodMacro, '--validate-theme=' + notATheme),
        { code: 1, lines: 'REJECT invalid or missing name\n' });
    assert.deepEqual(await ravelin('--scan-macro=' + missing, '--validate-macro=' + goodMacro),
        { code: 0, lines: 'OK 2 events\n' });
});

test('the last value of a switch counts', async () => {
    for (const [mode, other, ofMissing, ofOther] of [
        ['--validate-theme=', notATheme, 'REJECT could not open file\n', 'REJECT invalid or missing name\n'],
        ['--validate-macro=', goodMacro, "REJECT Couldn't open that macro file.\n", 'OK 2 events\n'],
        ['--scan-macro=', goodMacro, "REJECT Couldn't open that macro file.\n", '{"level":"none","matches":[]}\n'],
    ]) {
        assert.equal((await ravelin(mode + other, mode + missing)).lines, ofMissing, mode);
        assert.equal((await ravelin(mode + missing, mode + other)).lines, ofOther, mode);
    }
});

test('a good theme is told with its kind, its pieces and its font', async () => {
    for (const [name, { text, says }] of Object.entries(goodThemes))
        assert.deepEqual(await ravelin('--validate-theme=' + file(`${name}.json`, text)), { code: 0, lines: `${says}\n` }, name);
});

test('a self-test without vectors fails with its closing line', async () => {
    const { code, lines } = await ravelin('--selftest-update=');
    assert.equal(code, 1);
    assert.match(lines, /SELFTEST-UPDATE: FAILURES ABOVE\n$|^REJECT .+\n$/);
});
