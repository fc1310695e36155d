// The updater's steps, run inside the Wine prefix one command at a time.
import { spawn } from 'node:child_process';
import { existsSync, mkdirSync, readdirSync, rmSync } from 'node:fs';
import path from 'node:path';
import { createInterface } from 'node:readline';
import { environment, scratch, toolFolder, windowsPath, within } from '../../e2e/lib/wine.mjs';

export class Probe {
    /** Starts it, or the one of another version, with an empty folder for its temporary files. */
    static async open(program = 'update_probe.exe') {
        const probe = new Probe();
        probe.process = spawn('wine', [windowsPath(path.join(toolFolder, program))], {
            env: environment,
            // Never this process's own streams: the desktop's processes would hold them for as long
            // as they live, and whoever reads what the tests print would wait for them.
            stdio: ['pipe', 'pipe', 'ignore'],
        });
        probe.exited = new Promise((resolve) => probe.process.on('exit', resolve));
        const lines = createInterface({ input: probe.process.stdout })[Symbol.asyncIterator]();
        probe.nextLine = async () => (await lines.next()).value;
        probe.temp = path.join(scratch, 'update-temp');
        rmSync(probe.temp, { recursive: true, force: true });
        mkdirSync(probe.temp);
        await probe.useTemp(windowsPath(probe.temp));
        return probe;
    }

    /** One command after the other, in the order in which they are given. */
    async send(...words) {
        this.process.stdin.write(words.join(' ') + '\n');
        const line = await within(400_000, this.nextLine(), words[0]);
        if (line === undefined) throw new Error(`the probe ended during "${words.join(' ')}"`);
        return JSON.parse(line);
    }

    check() {
        return this.send('check');
    }

    download(url, sha256, stopAt = 0) {
        return this.send('download', url, sha256, stopAt);
    }

    async handles() {
        return (await this.send('handles')).handles;
    }

    useSource(source = '') {
        return this.send('source', source);
    }

    useTemp(folder) {
        return this.send('temp', folder);
    }

    trust(authority) {
        return this.send('trust', windowsPath(authority.file));
    }

    /** What lies in the folder for temporary files. */
    leftovers() {
        return existsSync(this.temp) ? readdirSync(this.temp) : [];
    }

    async close() {
        this.process.stdin.end();
        try {
            await within(30_000, this.exited, 'the probe to end');
        } finally {
            this.process.kill('SIGKILL');
            this.process.stdout.destroy();
        }
    }
}
