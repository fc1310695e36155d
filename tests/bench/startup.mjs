// From process start to the page's first status poll, beside a bare web view that shows one line and
// calls one bound function, in turns in the same run.
import { copyFileSync, mkdirSync, rmSync } from 'node:fs';
import path from 'node:path';
import { clearDataFolder, dataFolder, programFolder, scratch, start, textOf, toolFolder, until, windowsPath, within } from '../e2e/lib/wine.mjs';
import { windowTool } from '../e2e/lib/windows.mjs';
import { windowTitle } from '../e2e/lib/ravelin.mjs';

const turns = 7;
const median = (values) => [...values].sort((a, b) => a - b)[Math.floor(values.length / 2)];

async function timeToPoll() {
    const status = path.join(dataFolder(), 'status.txt');
    rmSync(status, { force: true });
    const began = performance.now();
    const run = start('Ravelin.exe');
    await until(() => textOf(status), 'the first status poll', 60_000);
    const time = performance.now() - began;
    await windowTool('close', windowTitle);
    await within(30_000, run.exited, 'the program to end');
    return time;
}

const bareFolder = path.join(scratch, 'bare');
mkdirSync(bareFolder, { recursive: true });
copyFileSync(path.join(toolFolder, 'bare_view.exe'), path.join(bareFolder, 'bare_view.exe'));
copyFileSync(path.join(programFolder, 'libwebview.dll'), path.join(bareFolder, 'libwebview.dll'));

async function timeToBareCall() {
    const began = performance.now();
    const run = start(windowsPath(path.join(bareFolder, 'bare_view.exe')));
    await until(() => run.output.includes('called'), 'the bare view\'s call', 60_000);
    const time = performance.now() - began;
    await within(30_000, run.exited, 'the bare view to end');
    return time;
}

clearDataFolder();
await timeToBareCall(); // warms the caches for both
const ours = [];
const bare = [];
for (let turn = 0; turn < turns; turn++) {
    bare.push(await timeToBareCall());
    ours.push(await timeToPoll());
}
const ratio = median(ours) / median(bare);
console.log(`Ravelin ${median(ours).toFixed(0)} ms, bare view ${median(bare).toFixed(0)} ms, ratio ${ratio.toFixed(2)}  (medians of ${turns}; goal: within 1.20)`);
