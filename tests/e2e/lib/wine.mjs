// Windows programs in the project's Wine prefix, all on one virtual desktop.
import { execFile, spawn } from 'node:child_process';
import { closeSync, existsSync, mkdirSync, openSync, readFileSync, rmSync, statSync } from 'node:fs';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { promisify } from 'node:util';

const run = promisify(execFile);

export const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '../../..');
export const build = path.join(root, 'build');
// The program, and below, whose data folder it uses: elsewhere in runs under other names.
export const programFolder = process.env.RAVELIN_TEST_PROGRAM_FOLDER ?? path.join(build, 'windows');
export const toolFolder = path.join(build, 'windows-objects');
export const prefix = process.env.WINEPREFIX ?? path.join(build, 'wineprefix');
export const scratch = path.join(build, 'e2e');
mkdirSync(scratch, { recursive: true });
/** Where copies of the program go. */
export const besideProgram = process.env.RAVELIN_TEST_PROGRAM_FOLDER ? path.dirname(programFolder) : scratch;

/** What every Windows program is started with. */
export const environment = {
    ...process.env,
    WINEPREFIX: prefix,
    WINEDEBUG: process.env.WINEDEBUG ?? '-all',
    WINEDLLOVERRIDES: 'mscoree=;mshtml=',
};

/** The path as a Windows program sees it. */
export function windowsPath(file) {
    return 'Z:' + file.replaceAll('/', '\\');
}

/** The folder of the program's own files for the user of the prefix. */
export function dataFolder() {
    const user = process.env.RAVELIN_TEST_USER ?? process.env.USER ?? 'root';
    return path.join(prefix, 'drive_c/users', user, 'AppData/Local/Ravelin');
}

let startedSoFar = 0;
const running = new Set();
// What a failed test left behind must not stand in the way of the next one.
process.on('exit', () => running.forEach((child) => child.kill('SIGKILL')));

/**
 * Starts a Windows program. The result has the process, the promise `exited` of its exit code,
 * whether it has ended, the text it printed so far, and both in words for a failure's message.
 *
 * Its output goes to a file: a pipe would also be held by what the program starts and by the
 * desktop's own processes, which outlive it, and would end with the last of them.
 */
export function start(program, args = [], options = {}) {
    const log = path.join(scratch, `output-${process.pid}-${++startedSoFar}.log`);
    const output = openSync(log, 'w');
    const child = spawn('wine', [program, ...args], {
        env: { ...environment, ...options.env },
        cwd: options.cwd ?? programFolder,
        stdio: ['ignore', output, output],
    });
    closeSync(output);
    running.add(child);
    child.unref(); // who waits for its end does so with a limit, see within()
    return {
        process: child,
        get output() {
            return readFileSync(log, 'utf8');
        },
        get ended() {
            return child.exitCode !== null || child.signalCode !== null;
        },
        story() {
            const end = this.ended ? `ended with ${child.exitCode ?? child.signalCode}` : 'still runs';
            return `${path.win32.basename(program)} ${end} and printed ${this.output.trim() || 'nothing'}`;
        },
        exited: new Promise((resolve, reject) => {
            child.on('error', reject);
            child.on('exit', (code) => {
                running.delete(child);
                resolve(code);
            });
        }),
    };
}

/** Runs a Windows program to its end; one that does not end in time is killed. */
export async function runToEnd(program, args = [], options = {}) {
    const started = start(program, args, options);
    try {
        const code = await within(options.timeout ?? 60_000, started.exited, `${program} to end`);
        return { code, output: started.output };
    } catch (error) {
        error.message += `\n${started.story()}`;
        started.process.kill('SIGKILL');
        throw error;
    }
}

/** The promise's value, or an error naming what was waited for. */
export async function within(milliseconds, promise, what) {
    let timer;
    const late = new Promise((_, reject) => {
        timer = setTimeout(() => reject(new Error(`waited ${milliseconds} ms for ${what}`)), milliseconds);
    });
    try {
        return await Promise.race([promise, late]);
    } finally {
        clearTimeout(timer);
    }
}

/** Asks until the answer is truthy, and gives it. */
export async function until(ask, what, milliseconds = 20_000) {
    const deadline = Date.now() + milliseconds;
    for (;;) {
        const answer = await ask();
        if (answer) return answer;
        if (Date.now() > deadline) throw new Error(`waited ${milliseconds} ms for ${what}`);
        await new Promise((resolve) => setTimeout(resolve, 20));
    }
}

/** Real keyboard and mouse input on the display. */
export async function xdotool(...args) {
    const { stdout } = await run('xdotool', args.map(String), { timeout: 20_000 });
    return stdout.trim();
}

export async function screenshot(name) {
    const file = path.join(build, 'screenshots', `${name}.png`);
    mkdirSync(path.dirname(file), { recursive: true });
    await run('import', ['-window', 'root', file], { timeout: 20_000 });
    return file;
}

export function clearDataFolder() {
    rmSync(dataFolder(), { recursive: true, force: true });
}

/** The file's text, or null while there is none. */
export function textOf(file) {
    return existsSync(file) && statSync(file).isFile() ? readFileSync(file, 'latin1') : null;
}
