// The system around a program: its monitors, keys, sessions and hooks.
import path from 'node:path';
import { runToEnd, toolFolder, windowsPath } from './wine.mjs';

const tool = windowsPath(path.join(toolFolder, 'system_tool.exe'));

/** Runs a command of the system tool; gives what it printed, with every letter of every script. */
export async function systemTool(...args) {
    const { code, output } = await runToEnd(tool, args.map(String), { timeout: 180_000 });
    if (code !== 0) throw new Error(`system_tool.exe ${args.join(' ')} ended with ${code} and printed ${output.trim() || 'nothing'}`);
    return output.replaceAll('\r\n', '\n').trimEnd();
}

/** [{ primary, whole, work }], each area being { left, top, width, height }. */
export async function monitors() {
    return JSON.parse(await systemTool('monitors'));
}

/** What the system says of these keys at this moment, by their codes: { code: { scan, name } }. */
export async function systemKeys(...codes) {
    const lines = (await systemTool('keys', ...codes)).split('\n');
    return Object.fromEntries(lines.map((line) => {
        const [, code, scan, name] = line.match(/^(\d+) (\d+) (.*)$/);
        return [code, { scan: Number(scan), name }];
    }));
}
