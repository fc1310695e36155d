// ravelin-check, the checks for servers on which macros and themes are shared, says what the
// program's own console modes say, with the same exit codes and the line ends of its own system.
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { mkdirSync, rmSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test from 'node:test';
import { goodThemes } from './lib/themes.mjs';
import { build, runToEnd, scratch, windowsPath } from './lib/wine.mjs';

const folder = path.join(scratch, 'check');
mkdirSync(folder, { recursive: true });

function file(name, content) {
    const place = path.join(folder, name);
    writeFileSync(place, content);
    return place;
}

const key = (time, code, down) => `3,${time},0,0,0,${code},${down},0\n`;
const stroke = (time, code) => key(time, code, 1) + key(time + 0.02, code, 0);
/** Win+R, then the text typed key by key: what opens a program unseen. */
const winR = key(0.1, 91, 1) + stroke(0.15, 82) + key(0.2, 91, 0);
const typed = (text, from) => [...text].map((letter, i) => stroke(from + i * 0.05, letter.charCodeAt(0))).join('');

const png = Buffer.from('iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg==', 'base64');

const files = {
    'plain macro': file('plain.rvnmacro', 'Sample\n' + stroke(0.5, 65)),
    'macro with CR LF': file('crlf.rvnmacro', ('Sample\n' + stroke(0.5, 65)).replaceAll('\n', '\r\n')),
    'macro that opens a command prompt': file('prompt.rvnmacro', 'Sample\n' + winR + typed('CMD', 0.5) + stroke(0.9, 13)),
    'macro that types a lot': file('typing.rvnmacro', 'Sample\n' + typed('ABCDEFGHIJKLMNOPQRSTUVWXYZ'.repeat(4), 0.5)),
    'macro without events': file('none.rvnmacro', 'Sample\n'),
    'empty file': file('empty', ''),
    'binary file': file('binary', Buffer.from([...Array(512).keys()].map((i) => (i * 37) & 255))),
    'picture': file('picture.png', png),
    'theme whose colour is none': file('colour.json', '{"name":"Night","bgMain":"blue"}'),
    'theme with a name of 41 bytes': file('name.json', `{"name":"${'N'.repeat(41)}"}`),
    'theme of nothing': file('empty.json', '{}'),
    'theme that is a list': file('list.json', '[1,2]'),
    'theme without its end': file('cut.json', '{"format":1,"name":"Night"'),
    'theme with a name': file('named.json', '{"format":1,"name":"Night","template":"dark"}'),
    'theme with a text for a format': file('format.json', '{"format":"1","name":"Näch\\u0074","template":"dark"}'),
    'missing file': path.join(folder, 'not there'),
    'theme with a skin': file('skin.json', goodThemes['pieces and a font'].text),
    folder,
};

const ravelinCheck = (...args) => {
    const { status, stdout, stderr } = spawnSync(path.join(build, 'host/ravelin-check'), args, { encoding: 'utf8', timeout: 60_000 });
    return { status, stdout, stderr };
};

for (const mode of ['validate-macro', 'scan-macro', 'validate-theme']) {
    test(`--${mode} says the same`, async () => {
        const outcomes = new Set();
        for (const [name, place] of Object.entries(files)) {
            const program = await runToEnd('Ravelin.exe', [`--${mode}=${windowsPath(place)}`]);
            const check = ravelinCheck(`--${mode}=${place}`);
            assert.deepEqual([check.status, check.stdout], [program.code, program.output.replaceAll('\r\n', '\n')], name);
            outcomes.add(program.output);
        }
        assert.ok(outcomes.size > 3, `${[...outcomes]}`); // the files do differ to the checks
    });
}

test('a good theme is told with its kind, its pieces and its font', () => {
    for (const [name, { text, says }] of Object.entries(goodThemes))
        assert.deepEqual(ravelinCheck(`--validate-theme=${file('good.json', text)}`), { status: 0, stdout: `${says}\n`, stderr: '' }, name);
});

test('a file that takes more memory than there is is rejected', () => {
    // One line without an end, read whole before it turns out to be no event.
    const place = file('endless.rvnmacro', 'Sample\n' + 'x'.repeat(100_000_000));
    const limited = `ulimit -v 200000; exec "$0" "$@"`;
    const { status, stdout, stderr } = spawnSync('sh', ['-c', limited, path.join(build, 'host/ravelin-check'), `--validate-macro=${place}`], { encoding: 'utf8', timeout: 60_000 });
    assert.deepEqual([status, stdout, stderr], [1, 'REJECT out of memory\n', '']);
    rmSync(place);
});

test('without a check to make it says how it is used, and exits with 2', () => {
    const { status, stdout, stderr } = ravelinCheck('--selftest-update=x');
    assert.deepEqual([status, stdout], [2, '']);
    assert.match(stderr, /--validate-macro=FILE/);
});
