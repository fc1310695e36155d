// The small host program, its windows and what its page reports.
import { existsSync, mkdirSync, mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { attachTo } from '../../e2e/lib/attach.mjs';
import { runToEnd, scratch, start, textOf, toolFolder, until, windowsPath, within, xdotool } from '../../e2e/lib/wine.mjs';
import { windowTool } from '../../e2e/lib/windows.mjs';
import { atEnd } from './harness.mjs';
import { browserProcesses, picture } from './unix.mjs';

const program = windowsPath(path.join(toolFolder, 'tests/wine/browser_host.exe'));
const pages = fileURLToPath(new URL('../pages/', import.meta.url));
let windows = 0;

export function pageText(name) {
    return readFileSync(path.join(pages, name), 'utf8');
}

/** Attaches a test program to a view that was published. */
export async function attach(view) {
    return await attachTo(view);
}

export class BrowserHost {
    /** Starts the program with a page's text and waits until the page is on the screen. */
    static async open({ page = pageText('events.html'), width = 400, height = 300, options = [], env = {}, ready = true } = {}) {
        const host = new BrowserHost();
        host.title = `Browser host ${process.pid} ${++windows}`;
        host.folder = mkdtempSync(path.join(scratch, 'browser-'));
        host.ports = path.join(host.folder, 'ports');
        host.log = path.join(host.folder, 'browser.log');
        mkdirSync(host.ports);
        const file = path.join(host.folder, 'page.html');
        writeFileSync(file, page);
        host.run = start(program, [host.title, String(width), String(height), windowsPath(file), ...options], {
            env: { RAVELIN_TEST_DEVTOOLS_DIR: host.ports, RAVELIN_TEST_BROWSER_LOG: host.log, ...env },
        });
        host.exited = host.run.exited.then((code) => code ?? 'killed');
        host.read = 0;
        atEnd(async () => host.exitCode === undefined && (await host.kill()));
        if (ready) host.place = (await host.reported('ready', undefined, 90_000))[1];
        return host;
    }

    /** Everything that the page reported, as arrays. */
    reports() {
        return this.run.output.split(/\r?\n/).filter((line) => line.startsWith('report ')).map((line) => JSON.parse(line.slice(7)));
    }

    /** Waits for the next report that begins like this and fits, and forgets all before it. */
    async reported(kind, fits = () => true, milliseconds = 30_000) {
        const find = () => {
            const ended = this.run.ended; // before all that it reported is read
            const all = this.reports();
            const found = all.findIndex((report, index) => index >= this.read && report[0] === kind && fits(...report.slice(1)));
            if (found < 0 && ended) throw new Error(`waited for the page to report "${kind}"`);
            if (found < 0) return null;
            this.read = found + 1;
            return all[found];
        };
        try {
            return await until(find, `the page to report "${kind}"`, milliseconds);
        } catch (error) {
            error.message += `\n${this.run.story()}\nand the runtime's log says ${this.logText() || 'nothing'}`;
            throw error;
        }
    }

    forget() {
        this.read = this.reports().length;
    }

    /** Since the last one that was waited for. */
    since(kind) {
        return this.reports().slice(this.read).filter((report) => report[0] === kind);
    }

    /** Moves and enlarges the window, so that it covers none that stands at the corner. */
    async moveAside() {
        await windowTool('move', this.title, 600, 400, 440, 360);
        await this.reported('size');
        this.place = (await this.reported('place'))[1];
    }

    async moveTo(x, y) {
        await xdotool('mousemove', this.place.x + x, this.place.y + y);
    }

    /** The same, until the page has reported the pointer there, as those pages do that are dragged on. */
    async moveSeenTo(x, y) {
        await this.moveTo(x, y);
        await this.reported('at', (left, top) => left === x && top === y);
    }

    /** Presses the left button, which a test that fails before it lets go does not leave to the next one. */
    async press() {
        atEnd(() => xdotool('mouseup', 1));
        await xdotool('mousedown', 1);
    }

    async click(x, y, button = 1) {
        await this.moveTo(x, y);
        await xdotool('click', button);
    }

    /** The colour of a point of the page as it is on the screen, "#rrggbb". */
    async colour(x, y) {
        const pixel = await picture(['-window', 'root', '-crop', `1x1+${this.place.x + x}+${this.place.y + y}`, '-depth', '8', 'rgb:-']);
        return '#' + pixel.toString('hex');
    }

    /** The page's part of the screen as a PNG file. */
    async capture() {
        const file = path.join(this.folder, 'screen.png');
        const { x, y, width, height } = this.place;
        await picture(['-window', 'root', '-crop', `${width}x${height}+${x}+${y}`, '+repage', file]);
        return file;
    }

    /** What the runtime published of each view: { port, target, pid, commandLine }. */
    published() {
        return readdirSync(this.ports).filter((name) => name.endsWith('.port')).map((name) => {
            const [port, target, pid, commandLine] = readFileSync(path.join(this.ports, name), 'utf8').split('\n');
            return { name, port: Number(port), target, pid: Number(pid), commandLine };
        });
    }

    /** What the runtime wrote down so far. */
    logText() {
        return textOf(this.log) ?? '';
    }

    /** The browsers' profile folders, as the log names them. */
    profiles() {
        return [...this.logText().matchAll(/browser: profile (\S+)/g)].map((match) => match[1]);
    }

    /** What is left of the browsers on the Unix side. */
    leftovers() {
        const profiles = this.profiles();
        return [...profiles.filter((profile) => existsSync(profile)), ...readdirSync(this.ports), ...browserProcesses(this.log, profiles)];
    }

    async gone() {
        try {
            await until(() => this.leftovers().length === 0, 'the browser to go');
        } catch (error) {
            error.message += `; left are ${this.leftovers().join(', ')}`;
            throw error;
        }
    }

    async close() {
        await windowTool('close', this.title);
        await this.end();
    }

    /** Ends the process as TerminateProcess does. */
    async kill() {
        for (const pid of new Set(this.published().map((view) => view.pid))) await runToEnd('taskkill', ['/f', '/pid', String(pid)]);
        if (this.published().length === 0) this.run.process.kill('SIGKILL');
        await this.end();
    }

    async end({ keepFolder = false } = {}) {
        this.exitCode = await within(60_000, this.exited, `${this.title} to end`);
        await this.gone();
        if (!keepFolder) rmSync(this.folder, { recursive: true, force: true });
    }
}
