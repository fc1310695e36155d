// ./dev mutate [--limit N] [--list] [FILE...]: changes the program in one small place at a time, in
// a copy of the tree, and tells which changes no test notices. Without files, the portable ones of
// the engine, the files, the scanner, the themes, the updater and their helpers are tried; a
// NAME_win32.cpp is tried under Wine.
//
// What is found out is kept in build/mutants/results.jsonl, so that a run that was ended goes on
// where it was. The machine is left to others: one change after another, at a low priority.
import { spawnSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import { appendFileSync, cpSync, existsSync, mkdirSync, readFileSync, readdirSync, writeFileSync } from 'node:fs';
import path from 'node:path';

const root = path.resolve(import.meta.dirname ?? path.dirname(new URL(import.meta.url).pathname), '..');
const home = path.join(root, 'build/mutants');
const tree = path.join(home, 'tree');
const resultsFile = path.join(home, 'results.jsonl');
const folders = ['input', 'persistence', 'scanner', 'themes', 'support', 'updater'];

// What a mutant changes.

/** The text with comments, and with `blankTexts` the inside of literals too, made blank, so that places stay. */
function masked(text, blankTexts) {
    const blank = (part) => part.replace(/[^\n]/g, ' ');
    return text.replace(/\/\/[^\n]*|\/\*[\s\S]*?\*\/|R"(\w*)\(([\s\S]*?)\)\1"|"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])'/g, (part) =>
        part.startsWith('/') ? blank(part) : blankTexts ? part[0] + blank(part.slice(1, -1)) + part.at(-1) : part);
}

const exchanged = new Map(Object.entries({
    '<': '<=', '<=': '<', '>': '>=', '>=': '>', '==': '!=', '!=': '==',
    '&&': '||', '||': '&&', '+': '-', '-': '+', '*': '/', '/': '*', '%': '*', '+=': '-=', '-=': '+=',
}));

const oneMore = (number) => {
    const [, digits, suffix] = number.match(/^(0x[0-9a-fA-F']+|[\d'.]+?)([uUlLfF]*)$/);
    const plain = digits.replaceAll("'", '');
    if (plain.startsWith('0x')) return '0x' + (BigInt(plain) + 1n).toString(16) + suffix;
    return (plain.includes('.') ? String(Number(plain) + 1) + (/\.0$/.test(plain) ? '.0' : '') : String(BigInt(plain) + 1n)) + suffix;
};

const notARule = /^\s*(#|using |namespace|static_assert|template|class |struct |enum |friend |public:|private:|protected:)/;
// A call or an assignment that stands by itself: no declaration, nothing that gives a value back.
const statement = /^\s*(?!return\b|throw\b|delete\b|co_)[\w:.>*\-[\]()&!]*[\w\])](\(.*\)| (=|\+=|-=|\|=) .+|\+\+|--);$/;
const guard = /^\s*if \(.*\) (return( [^;]+)?|continue|break);$/;

const balanced = (line) => [...line].reduce((depth, c) => depth + ('([{'.includes(c) ? 1 : ')]}'.includes(c) ? -1 : 0), 0) === 0;

/** All mutants of a text: [{ at, length, replacement, kind }]. */
function mutantsOf(text) {
    const code = masked(text, true);
    const withTexts = masked(text, false);
    const mutants = [];
    let at = 0;
    const lines = code.split('\n').map((line) => {
        const start = at;
        at += line.length + 1;
        return { line, start };
    });
    const add = (place, length, replacement, kind) => mutants.push({ at: place, length, replacement, kind });
    lines.forEach(({ line, start }, i) => {
        if (notARule.test(line)) return;
        const original = withTexts.slice(start, start + line.length);
        for (const { 1: operator, index } of line.matchAll(/(?<= )(<=|>=|==|!=|<|>|&&|\|\||\+=|-=|[-+*/%])(?= )/g))
            add(start + index, operator.length, exchanged.get(operator), 'operator');
        for (const { index } of line.matchAll(/!(?=[\w(:])/g)) add(start + index, 1, '', 'negation');
        for (const { 0: number, index } of line.matchAll(/(?<![\w.'"])(0x[0-9a-fA-F']+|\d[\d']*(\.\d+)?)[uUlLfF]*(?![\w.'"])/g))
            add(start + index, number.length, oneMore(number), 'constant');
        for (const { 0: value, index } of line.matchAll(/\b(true|false)\b/g))
            add(start + index, value.length, value === 'true' ? 'false' : 'true', 'constant');
        for (const { 0: literal, index } of original.matchAll(/(?<!R)"(?:\\.|[^"\\\n])+"/g))
            add(start + index, literal.length, literal.slice(0, -1) + '~"', 'constant');
        for (const { 0: literal, index } of original.matchAll(/'(?:\\.|[^'\\\n])'/g))
            if (!/\d$/.test(original.slice(0, index))) add(start + index, literal.length, literal === "';'" ? "':'" : "';'", 'constant');
        const indent = line.match(/^ */)[0].length;
        const isStatement = (text) => statement.test(text) && balanced(text) && !/ (const|auto) /.test(text);
        if (isStatement(line) || /^\s*(break|continue);$/.test(line) || guard.test(line))
            add(start + indent, line.length - indent, ';', 'dropped');
        const next = lines[i + 1];
        if (next && isStatement(line) && isStatement(next.line) && next.line.match(/^ */)[0].length === indent &&
            /[;{}:]\s*$|^\s*$/.test(lines[i - 1]?.line ?? ''))
            add(start, line.length + 1 + next.line.length, text.slice(next.start, next.start + next.line.length) + '\n' + text.slice(start, start + line.length), 'swapped');
    });
    return mutants.filter(({ at: place, length, replacement }) => text.slice(place, place + length) !== replacement);
}

const lineOf = (text, place) => text.slice(0, place).split('\n').length;
const short = (text) => text.trim().replace(/\s+/g, ' ').slice(0, 90);

// Which of them are tried: in turns from every file, always the same ones.

/** Numbers from 0 to 1 that depend on the seed alone. */
function randomNumbers(seed) {
    let state = seed;
    return () => {
        state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
        return state / 2 ** 32;
    };
}

function shuffled(items, random) {
    const result = [...items];
    for (let i = result.length - 1; i > 0; --i) {
        const j = Math.floor(random() * (i + 1));
        [result[i], result[j]] = [result[j], result[i]];
    }
    return result;
}

function choose(files, limit) {
    const queues = files.map((file) => {
        const text = readFileSync(path.join(root, file), 'utf8');
        const seed = createHash('sha256').update(file).digest().readUInt32LE();
        return shuffled(mutantsOf(text), randomNumbers(seed)).map((mutant) => ({ file, text, ...mutant }));
    });
    const chosen = [];
    for (let round = 0; chosen.length < limit && queues.some((queue) => queue.length > round); ++round)
        for (const queue of queues) if (queue.length > round && chosen.length < limit) chosen.push(queue[round]);
    return chosen.sort((a, b) => files.indexOf(a.file) - files.indexOf(b.file) || a.at - b.at);
}

// How one is tried.

const gently = (command, args, options = {}) => spawnSync('nice', ['-n', '10', command, ...args], { encoding: 'utf8', maxBuffer: 1 << 28, killSignal: 'SIGKILL', ...options });

function must(what, { status, stdout, stderr, error }) {
    if (status !== 0) throw new Error(`${what} failed\n${error ?? ''}${stdout?.slice(-3000)}${stderr?.slice(-3000)}`);
}

/** Brings the copy up to the working tree, touching only what differs. */
function copyTree() {
    const { stdout } = spawnSync('git', ['ls-files', '-co', '--exclude-standard'], { cwd: root, encoding: 'utf8' });
    for (const file of stdout.split('\n').filter((name) => name && existsSync(path.join(root, name)))) {
        const from = path.join(root, file);
        const to = path.join(tree, file);
        if (existsSync(to) && readFileSync(to).equals(readFileSync(from))) continue;
        mkdirSync(path.dirname(to), { recursive: true });
        cpSync(from, to);
    }
    // The key that the copy would otherwise make for itself, and the program's page for Windows.
    for (const name of ['update-key', 'page']) {
        const from = path.join(root, 'build', name);
        if (existsSync(from)) cpSync(from, path.join(tree, 'build', name), { recursive: true });
    }
}

/** The names of the test suites in a folder of tests, as a filter. */
function suitesIn(folder) {
    if (!existsSync(folder)) return [];
    const names = new Set();
    for (const file of readdirSync(folder).filter((name) => name.endsWith('_test.cpp')))
        for (const [, name] of readFileSync(path.join(folder, file), 'utf8').matchAll(/^TEST(?:_F|_P)?\(\s*(\w+),/gm)) names.add(name);
    return [...names].map((name) => `*${name}.*`);
}

/** Portable files, on Linux. */
const host = {
    fits: (file) => !file.endsWith('_win32.cpp'),
    folder: path.join(tree, 'build/mutate-host'),
    target: 'ravelin_unit_tests',
    prepare() {
        const linker = existsSync('/usr/bin/ld.lld') ? ['-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld'] : [];
        must('configuring', gently('cmake', ['-S', tree, '-B', this.folder, '-G', 'Ninja', '-DCMAKE_BUILD_TYPE=', '-DCMAKE_C_COMPILER=clang',
            '-DCMAKE_CXX_COMPILER=clang++', '-DCMAKE_CXX_FLAGS=-O0 -w -D_GLIBCXX_ASSERTIONS', ...linker]));
    },
    near: (file) => suitesIn(path.join(root, 'tests/unit', path.dirname(file))),
    run(filter, timeout) {
        return gently(path.join(this.folder, this.target), [`--gtest_filter=${filter}`, '--gtest_fail_fast', '--gtest_brief=1'], { timeout });
    },
};

/** The Windows half, under Wine. */
const windows = {
    fits: (file) => file.endsWith('_win32.cpp'),
    folder: path.join(tree, 'build/windows-objects'),
    target: 'ravelin_windows_tests',
    prepare() {
        must('configuring', gently('cmake', ['--preset', 'windows', '-DCMAKE_CXX_FLAGS=-w', '-DCMAKE_CXX_FLAGS_RELEASE=-O0'], { cwd: tree }));
    },
    near: (file) => suitesIn(path.join(root, 'tests/windows', path.dirname(file))),
    run(filter, timeout) {
        const env = { ...process.env, RAVELIN_WINDOWS_TESTS: path.join(this.folder, `${this.target}.exe`), WINEPREFIX: path.join(root, 'build/wineprefix'), RAVELIN_TESTS_TIMEOUT: String(Math.ceil(timeout / 1000)) };
        delete env.DISPLAY;
        return gently('tests/windows/run_tests.sh', [`--gtest_filter=${filter}`, '--gtest_fail_fast'], { cwd: root, env, timeout: timeout + 20_000 });
    },
};

function build(kit) {
    return gently('cmake', ['--build', kit.folder, '--target', kit.target, '-j', '2']);
}

const ends = (run) => (run.error?.code === 'ETIMEDOUT' || run.status === null ? 'no end' : run.status === 0 ? 'passed' : 'failed');

/** How a mutant ends: "killed", "survived", or "not compiled". */
function outcomeOf(kit, mutant, times) {
    const file = path.join(tree, mutant.file);
    writeFileSync(file, mutant.text.slice(0, mutant.at) + mutant.replacement + mutant.text.slice(mutant.at + mutant.length));
    try {
        if (build(kit).status !== 0) return 'not compiled';
        const near = kit.near(mutant.file);
        if (near.length > 0 && ends(kit.run(near.join(':'), times.limit)) !== 'passed') return 'killed';
        return ends(kit.run(near.length > 0 ? `-${near.join(':')}` : '*', times.limit)) === 'passed' ? 'survived' : 'killed';
    } finally {
        writeFileSync(file, mutant.text);
    }
}

// The run.

function readArguments() {
    const words = process.argv.slice(2);
    const options = { limit: 400, list: false, files: [] };
    while (words.length > 0) {
        const word = words.shift();
        if (word === '--limit') options.limit = Number(words.shift());
        else if (word === '--list') options.list = true;
        else options.files.push(path.relative(root, path.resolve(word)));
    }
    if (options.files.length === 0)
        options.files = folders.flatMap((folder) => readdirSync(path.join(root, folder)).filter((name) => name.endsWith('.cpp') && !name.endsWith('_win32.cpp')).map((name) => `${folder}/${name}`));
    return options;
}

const idOf = (mutant) => createHash('sha256').update([mutant.file, mutant.text, mutant.at, mutant.replacement].join('\0')).digest('hex').slice(0, 16);

function describe(mutant) {
    const was = mutant.text.slice(mutant.at, mutant.at + mutant.length);
    const lineStart = mutant.text.lastIndexOf('\n', mutant.at - 1) + 1;
    const lineEnd = mutant.text.indexOf('\n', mutant.at);
    return `${mutant.file}:${lineOf(mutant.text, mutant.at)} ${mutant.kind}: ${short(was)} -> ${short(mutant.replacement) || 'nothing'}   in   ${short(mutant.text.slice(lineStart, lineEnd))}`;
}

function report(chosen, known) {
    const outcomes = chosen.map((mutant) => ({ mutant, outcome: known.get(idOf(mutant)) })).filter(({ outcome }) => outcome);
    const count = (wanted) => outcomes.filter(({ outcome }) => outcome === wanted).length;
    const survivors = outcomes.filter(({ outcome }) => outcome === 'survived').map(({ mutant }) => describe(mutant));
    console.log(survivors.join('\n'));
    console.log(`\n${outcomes.length} of ${chosen.length} tried: ${count('killed')} killed, ${count('not compiled')} not compiled, ${count('survived')} survived`);
}

const options = readArguments();
const chosen = choose(options.files, options.limit);
mkdirSync(home, { recursive: true });
const known = new Map((existsSync(resultsFile) ? readFileSync(resultsFile, 'utf8') : '').split('\n').filter(Boolean).map((line) => {
    const { id, outcome } = JSON.parse(line);
    return [id, outcome];
}));
if (options.list) {
    chosen.forEach((mutant) => console.log(describe(mutant)));
    process.exit();
}
copyTree();
for (const kit of [host, windows]) {
    const pending = chosen.filter((mutant) => kit.fits(mutant.file) && !known.has(idOf(mutant)));
    if (pending.length === 0) continue;
    kit.prepare();
    must('building', build(kit));
    const began = Date.now();
    must('the tests without a change', kit.run('*', 600_000));
    const times = { limit: 5 * (Date.now() - began) + 20_000 };
    pending.forEach((mutant, i) => {
        const outcome = outcomeOf(kit, mutant, times);
        known.set(idOf(mutant), outcome);
        appendFileSync(resultsFile, JSON.stringify({ id: idOf(mutant), outcome, what: describe(mutant) }) + '\n');
        console.error(`${i + 1}/${pending.length} ${outcome.padEnd(12)} ${describe(mutant)}`);
    });
}
report(chosen, known);
