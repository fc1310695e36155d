// The real program on the virtual desktop, with its real page.
import { mkdirSync, readFileSync, readdirSync, rmSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import { attachTo } from './attach.mjs';
import { clearDataFolder, dataFolder, runToEnd, scratch, start, textOf, toolFolder, until, within } from './wine.mjs';
import { untilWindow, windowTool } from './windows.mjs';

export const { windowTitle } = JSON.parse(readFileSync(path.join(toolFolder, 'generated/product.json'), 'utf8'));

let count = 0;

export class Ravelin {
    /** Starts the program, with these application settings, and waits until its page asks for the status. */
    static async open({ program = 'Ravelin.exe', args = [], keepData = false, settings, env = {} } = {}) {
        if (!keepData) clearDataFolder();
        if (settings) {
            const lines = Object.entries(settings).map(([key, value]) => `${key}=${value}\r\n`);
            mkdirSync(dataFolder(), { recursive: true });
            writeFileSync(path.join(dataFolder(), 'appsettings.txt'), lines.join(''));
        }
        const ravelin = new Ravelin();
        ravelin.browsers = [];
        ravelin.ports = path.join(scratch, `devtools-${process.pid}-${++count}`);
        rmSync(ravelin.ports, { recursive: true, force: true });
        mkdirSync(ravelin.ports, { recursive: true });
        rmSync(path.join(dataFolder(), 'status.txt'), { force: true });
        ravelin.log = path.join(ravelin.ports, 'browser.log');
        ravelin.run = start(program, args, { env: { RAVELIN_TEST_DEVTOOLS_DIR: ravelin.ports, RAVELIN_TEST_BROWSER_LOG: ravelin.log, ...env } });
        await ravelin.firstPoll();
        return ravelin;
    }

    async firstPoll() {
        const poll = () => {
            const ended = this.run.ended; // before what it leaves is read
            const status = this.status();
            if (!status && ended) throw new Error('waited for the first status poll');
            return status;
        };
        try {
            await until(poll, 'the first status poll', 60_000);
        } catch (error) {
            error.message += `\n${this.run.story()}\nand the browser's log says ${textOf(this.log) || 'nothing'}`;
            throw error;
        }
    }

    /** The status as the page saw it last, or null before the first poll. */
    status() {
        const text = textOf(path.join(dataFolder(), 'status.txt'));
        try {
            return JSON.parse(text);
        } catch {
            return null; // not there yet, or just being written
        }
    }

    /** The status of this very moment; asked through the page where a test is attached to it. */
    async statusNow() {
        return this.attached ? await this.attached.evaluate(() => window.getTrackerStatus()) : this.status();
    }

    async untilStatus(holds, what) {
        return await until(async () => {
            const status = await this.statusNow();
            return status && holds(status) && status;
        }, what);
    }

    /** The page of the main window, through the engine's debugging port. */
    async page() {
        this.attached ??= await this.attach(({ commandLine }) => !commandLine.includes('--child'));
        return this.attached;
    }

    /** The page of the panel's window of that title. */
    async panelPage(title) {
        const process = await until(() => windowTool('process', title), `the window "${title}"`);
        // Whoever attaches to a page that is being made may wait for it for ever.
        await untilWindow(title, ({ cloaked }) => !cloaked, `the window "${title}" to be seen`);
        return await this.attach((view) => view.process === process);
    }

    /** The page of the view that fits. */
    async attach(fits) {
        const view = await until(() => this.views().find(fits), 'the debugging port');
        const { browser, page } = await attachTo(view);
        this.browsers.push(browser);
        page.setDefaultTimeout(20_000);
        return page;
    }

    /** The views of all windows so far. */
    views() {
        return readdirSync(this.ports).filter((file) => file.endsWith('.port')).map((name) => {
            const [port, target, process, commandLine = ''] = (textOf(path.join(this.ports, name)) ?? '').split('\n');
            return { port, target, process, commandLine };
        });
    }

    async detach() {
        for (const browser of this.browsers.splice(0)) await browser.close().catch(() => {});
    }

    /** Closes the window as a user does and waits for the program's end; gives the exit code. */
    async close() {
        await this.detach();
        await windowTool('close', windowTitle);
        return await within(30_000, this.run.exited, 'the program to end');
    }

    /** Closes the window; a program that does not end by that is killed, and the failure passed on. */
    async closeOrKill() {
        try {
            return await this.close();
        } catch (error) {
            await this.kill();
            throw error;
        }
    }

    /** Ends the process without asking it. */
    async kill() {
        await this.detach();
        await runToEnd('taskkill', ['/f', '/im', 'Ravelin.exe']);
        return await within(30_000, this.run.exited, 'the program to end');
    }
}
