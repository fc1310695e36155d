// The other program: a window that writes down what reaches it.
import path from 'node:path';
import { rmSync } from 'node:fs';
import { pointerPlace } from './pointer.mjs';
import { scratch, start, textOf, toolFolder, until, windowsPath, within, xdotool } from './wine.mjs';

let count = 0;

export class Witness {
    /** Shows the window and waits until it is there. */
    static async open({ title = 'Witness', x = 520, y = 80, width = 400, height = 300 } = {}) {
        const witness = new Witness();
        witness.title = title;
        witness.log = path.join(scratch, `witness-${process.pid}-${++count}.log`);
        rmSync(witness.log, { force: true });
        witness.run = start(windowsPath(path.join(toolFolder, 'witness.exe')),
            [windowsPath(witness.log), title, x, y, width, height].map(String));
        const ready = await until(() => witness.lines().find((line) => line.kind === 'ready'), 'the witness window');
        witness.origin = { x: ready.a, y: ready.b };
        witness.center = { x: ready.a + Math.round(width / 2) - 10, y: ready.b + Math.round(height / 2) - 20 };
        return witness;
    }

    /** What has arrived so far: [{ time (seconds), kind, a, b }]. */
    lines() {
        const text = textOf(this.log) ?? '';
        return text.split('\n').slice(0, -1).map((line) => {
            const [time, kind, a, b] = line.trim().split(' ');
            return { time: Number(time) / 1e6, kind, a: Number(a), b: Number(b) };
        });
    }

    of(kind) {
        return this.lines().filter((line) => line.kind === kind);
    }

    mark() {
        this.from = this.lines().length;
    }

    /** What has arrived since mark(). */
    fresh(kind) {
        return this.lines().slice(this.from ?? 0).filter((line) => !kind || line.kind === kind);
    }

    /** Puts the cursor on the window, so far from its centre, and waits until it has arrived. */
    async point(right = 0, down = 0) {
        const { x, y } = { x: this.center.x + right, y: this.center.y + down };
        const old = await pointerPlace();
        if (old.x === x && old.y === y) return;
        const before = this.of('move').length;
        await xdotool('mousemove', x, y);
        await until(() => {
            const last = this.of('move').slice(before).at(-1);
            return last && last.a === x - this.origin.x && last.b === y - this.origin.y;
        }, `the cursor on the witness at ${x}, ${y}`);
    }

    /** Does what stops the clicker and waits for the last release that a stop sends. */
    async seeStop(stop) {
        const before = this.of('middle-up').length;
        await stop();
        await until(() => this.of('middle-up').length > before, 'the releases of the stop');
    }

    /** Puts the cursor on the window and gives it the focus by a real click. */
    async focus() {
        await this.point();
        const before = this.of('left-up').length;
        await xdotool('click', 1);
        await until(() => this.of('left-up').length > before, 'the click on the witness');
        this.mark();
    }

    async close() {
        this.run.process.kill();
        await within(20_000, this.run.exited, 'the witness to end');
    }
}
