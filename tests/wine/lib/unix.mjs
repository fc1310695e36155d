// The Unix side of the tests: processes and pictures of the display.
import { execFile } from 'node:child_process';
import { chmodSync, mkdtempSync, readdirSync, readFileSync, readlinkSync, rmSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import { promisify } from 'node:util';
import { scratch } from '../../e2e/lib/wine.mjs';
import { atEnd } from './harness.mjs';

const run = promisify(execFile);

function read(file) {
    try {
        return readFileSync(file, 'latin1');
    } catch {
        return ''; // the process has just ended
    }
}

/** Keepers with this log file and browsers with one of these profiles, each as "pid name". */
export function browserProcesses(log, profiles) {
    const found = [];
    for (const pid of readdirSync('/proc').filter((name) => /^\d+$/.test(name))) {
        const command = read(`/proc/${pid}/cmdline`).replaceAll('\0', ' ');
        const keeper = command.includes('browser_keeper.sh') && read(`/proc/${pid}/environ`).includes(log);
        if (keeper || profiles.some((profile) => command.includes(profile))) found.push(`${pid} ${command.split(' ')[0]}`);
    }
    return found;
}

/** The browser's own process with this profile, without its helpers. */
export function browserProcess(profile) {
    const found = browserProcesses('none', [profile]).map((each) => Number(each.split(' ')[0]));
    return found.find((pid) => !read(`/proc/${pid}/cmdline`).includes('--type='));
}

/** A program for the current test, made of this shell text; gives its path. */
export function makeProgram(text) {
    const folder = mkdtempSync(path.join(scratch, 'program-'));
    atEnd(() => rmSync(folder, { recursive: true, force: true }));
    const file = path.join(folder, 'program');
    writeFileSync(file, `#!/bin/bash\n${text}\n`);
    chmodSync(file, 0o755);
    return file;
}

/** What the process has open: paths, "pipe:[number]", "socket:[number]". */
export function openFiles(pid) {
    try {
        return readdirSync(`/proc/${pid}/fd`).map((number) => readlinkSync(`/proc/${pid}/fd/${number}`));
    } catch {
        return []; // the process has just ended
    }
}

/** Takes a picture of the display with ImageMagick; gives what it wrote to its output. */
export async function picture(args) {
    const { stdout } = await run('import', args, { encoding: 'buffer', timeout: 20_000 });
    return stdout;
}

/** How many pixels differ between two pictures. */
export async function differentPixels(first, second) {
    try {
        await run('compare', ['-metric', 'AE', first, second, 'null:'], { timeout: 20_000 });
        return 0;
    } catch (error) {
        if (error.code !== 1) throw error;
        return Number(error.stderr.trim().split(/\s/)[0]);
    }
}
