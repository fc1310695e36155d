// The browser engine as it is when things go wrong: refusing, silent, updated, crashing.
import { cpSync, readFileSync, readdirSync, rmSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import { prefix, runToEnd, scratch, textOf } from './wine.mjs';

const mood = path.join(scratch, `engine-mood-${process.pid}`);
const key = 'HKLM\\SOFTWARE\\Microsoft\\EdgeUpdate\\ClientState\\{F3017226-FE2A-4295-8BDF-00C3A9A7E4C5}';
const runtimes = path.join(prefix, 'drive_c/ravelin-test-runtime');

/** What a program is started with so that its engine does as told here. */
export const engineEnvironment = { RAVELIN_TEST_ENGINE: mood };

/** From now on every request for a view gets this HRESULT, in hexadecimal. */
export const refuseViews = (code) => writeFileSync(mood, `refuse ${code}\n`);
/** From now on no request for a view is answered. */
export const ignoreRequests = () => writeFileSync(mood, 'silent\n');
export const serveViews = () => rmSync(mood, { force: true });

async function installed() {
    const { output } = await runToEnd('reg', ['query', key, '/v', 'EBWebView', '/reg:32']);
    return output.match(/REG_SZ\s+(.+)/)[1].trim();
}

const install = (folder) => runToEnd('reg', ['add', key, '/v', 'EBWebView', '/d', folder, '/f', '/reg:32']);

/** Does something while another version of the engine is installed beside the one that runs. */
export async function whileUpdated(action, version = '121.0.2100.0') {
    const before = await installed();
    const current = path.join(runtimes, path.win32.basename(before));
    cpSync(current, path.join(runtimes, version), { recursive: true });
    await install(`C:\\ravelin-test-runtime\\${version}`);
    try {
        return await action();
    } finally {
        await install(before);
    }
}

/** The browser's own process and those of its pages, of the program with this log. */
export function enginesOf(log) {
    const profiles = [...(textOf(log) ?? '').matchAll(/browser: profile (\S+)/g)].map((match) => match[1]);
    return profiles.map((profile) => {
        const processes = processesNow();
        const main = processes.find(({ command }) => command.includes(`--user-data-dir=${profile}`) && !command.includes('--type='));
        const pages = processes.filter(({ session, command }) => session === main?.pid && command.includes('--type=renderer'));
        return { profile, main: main?.pid, pages: pages.map(({ pid }) => pid) };
    }).filter(({ main }) => main);
}

function processesNow() {
    return readdirSync('/proc').filter((name) => /^\d+$/.test(name)).flatMap((pid) => {
        try {
            const command = readFileSync(`/proc/${pid}/cmdline`, 'latin1').replaceAll('\0', ' ');
            // Behind the name in parentheses: state, parent, group, session.
            const session = readFileSync(`/proc/${pid}/stat`, 'latin1').split(') ').at(-1).split(' ')[3];
            return [{ pid: Number(pid), session: Number(session), command }];
        } catch {
            return []; // it has just ended
        }
    });
}
