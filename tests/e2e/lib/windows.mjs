// Windows of the virtual desktop, seen and handled from outside their programs.
import path from 'node:path';
import { runToEnd, toolFolder, until, windowsPath } from './wine.mjs';

const tool = windowsPath(path.join(toolFolder, 'window_tool.exe'));

/** Runs a command of the window tool; gives what it printed, or null when there is no such window. */
export async function windowTool(...args) {
    const { code, output } = await runToEnd(tool, args.map(String));
    return code === 0 ? output.replaceAll('\r\n', '\n').trim() : null;
}

/** { left, top, width, height, minimized, maximized, foreground, topmost, ... } or null. */
export async function windowState(title) {
    const text = await windowTool('state', title);
    return text && JSON.parse(text);
}

export async function untilWindow(title, holds = () => true, what = `the window "${title}"`, milliseconds = undefined) {
    return await until(async () => {
        const state = await windowState(title);
        return state && holds(state) && state;
    }, what, milliseconds);
}
