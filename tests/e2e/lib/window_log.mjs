// The record of what becomes of windows, from their first moment on: what a user may see in between
// is there even if no test looked in time.
import assert from 'node:assert/strict';
import { mkdirSync, readdirSync, rmSync } from 'node:fs';
import path from 'node:path';
import { scratch, start, textOf, toolFolder, until, windowsPath, within } from './wine.mjs';

const caption = 0x00c00000;
const minimized = 0x20000000;
let count = 0;

export class WindowLog {
    /** Begins the record of the programs that are started with `env` from then on, and of theirs. */
    static async open() {
        const log = new WindowLog();
        log.folder = path.join(scratch, `windows-${process.pid}-${++count}`);
        rmSync(log.folder, { recursive: true, force: true });
        mkdirSync(log.folder, { recursive: true });
        const note = path.join(log.folder, 'ready');
        log.holder = start(windowsPath(path.join(toolFolder, 'window_tool.exe')),
            ['hook', path.join(toolFolder, 'tests/wine/window_hook.dll'), note].map((each, i) => (i ? windowsPath(each) : each)));
        log.env = { RAVELIN_TEST_WINDOW_LOG: log.folder };
        await until(() => textOf(note) || log.holder.ended, 'the recorder to begin');
        if (log.holder.ended) throw new Error(log.holder.story());
        return log;
    }

    /** Everything so far, in order: [{ time (milliseconds), process, window, kind, values, text }]. */
    lines() {
        return readdirSync(this.folder).filter((name) => name.endsWith('.log')).flatMap((name) => {
            const text = Buffer.from(textOf(path.join(this.folder, name)), 'latin1').toString('utf8');
            return text.split('\n').slice(0, -1).map((line) => {
                const [, time, window, kind, rest] = line.match(/^(\S+) (\S+) (\S+) ?(.*)$/);
                return { time: Number(time), process: name.slice(0, -4), window, kind, values: rest.split(' '), text: `${kind} ${rest}`.trim() };
            });
        }).sort((one, other) => one.time - other.time);
    }

    /** What became of the window that has or had a title that begins like this; the newest of them. */
    of(title) {
        const lines = this.lines();
        const named = lines.findLast(({ kind, text }) => kind === 'title' && text.slice(6).startsWith(title));
        if (!named) return [];
        const mine = lines.filter(({ process, window }) => process === named.process && window === named.window);
        // Identifiers are used again.
        const born = mine.findLastIndex(({ kind, time }) => kind === 'create' && time <= named.time);
        const gone = mine.findIndex(({ kind }, i) => i > born && kind === 'destroy');
        return mine.slice(Math.max(born, 0), gone < 0 ? undefined : gone + 1);
    }

    /**
     * Everything that a user could see of the window, in order: one entry whenever its place or
     * style was new while it was shown, neither cloaked nor minimised.
     * [{ time, title, left, top, width, height, style, caption }]
     */
    seen(title) {
        const now = { title: '', place: [0, 0, 0, 0], style: 0, shown: false, cloaked: false };
        const all = [];
        let last = '';
        for (const { time, kind, values, text } of this.of(title)) {
            if (kind === 'title') now.title = text.slice(6);
            if (kind === 'place') now.place = values.map(Number);
            if (kind === 'style') now.style = parseInt(values[0], 16);
            if (kind === 'show') now.shown = values[0] === '1';
            if (kind === 'cloak') now.cloaked = values[0] === '1';
            if (kind === 'destroy') now.shown = false;
            const visible = now.shown && !now.cloaked && (now.style & minimized) === 0;
            const [left, top, right, bottom] = now.place;
            const state = { title: now.title, left, top, width: right - left, height: bottom - top, style: now.style, caption: (now.style & caption) === caption };
            const next = visible ? JSON.stringify(state) : '';
            if (visible && next !== last) all.push({ time, ...state });
            last = next;
        }
        return all;
    }

    /** These came in this order, others in between; each is a text from its beginning, or a pattern. */
    inOrder(title, ...wanted) {
        const lines = this.of(title);
        let at = 0;
        return wanted.map((each, i) => {
            const fits = each instanceof RegExp ? ({ text }) => each.test(text) : ({ text }) => text.startsWith(each);
            const found = lines.findIndex((line, index) => index >= at && fits(line));
            assert.ok(found >= 0, `no "${each}" after ${i > 0 ? `"${wanted[i - 1]}"` : 'the beginning'} in\n${lines.map(({ time, text }) => `${time} ${text}`).join('\n')}`);
            at = found + 1;
            return lines[found];
        });
    }

    async close() {
        this.holder.process.kill();
        await within(20_000, this.holder.exited, 'the recorder to end');
        rmSync(this.folder, { recursive: true, force: true });
    }
}
