// Windows of the virtual desktop, seen and handled from outside their programs.
import path from 'node:path';
import { runToEnd, toolFolder, until, windowsPath } from './wine.mjs';

const tool = windowsPath(path.join(toolFolder, 'window_tool.exe'));

/** Runs a command of the window tool; gives what it printed, or null when there is no such window. */
export async function windowTool(...args) {
    const { code, output } = await runToEnd(tool, args.map(String));
    if (code === 0) return output.replaceAll('\r\n', '\n').trim();
    if (code === 3) return null;
    throw new Error(`window_tool.exe ${args.join(' ')} ended with ${code} and printed ${output.trim() || 'nothing'}`);
}

/** { left, top, width, height, minimized, maximized, foreground, topmost, ... } or null. */
export async function windowState(title) {
    const text = await windowTool('state', title);
    return text && JSON.parse(text);
}

export async function untilWindow(title, holds = () => true, what = `the window "${title}"`, milliseconds = undefined) {
    let state;
    try {
        return await until(async () => {
            state = await windowState(title);
            return state && holds(state) && state;
        }, what, milliseconds);
    } catch (error) {
        error.message += `\nit is ${JSON.stringify(state)}, and there are the windows ${(await windowTool('list'))?.split('\n').join(', ') || 'none'}`;
        throw error;
    }
}
