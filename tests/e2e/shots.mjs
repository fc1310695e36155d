// Pictures of the real window in the states that a user sees.
import { Ravelin, windowTitle } from './lib/ravelin.mjs';
import { Witness } from './lib/witness.mjs';
import { screenshot, xdotool } from './lib/wine.mjs';
import { untilWindow, windowTool } from './lib/windows.mjs';

const settle = () => new Promise((resolve) => setTimeout(resolve, 600));

async function shot(name) {
    await settle();
    console.log(await screenshot(name));
}

const ravelin = await Ravelin.open();
const page = await ravelin.page();
await untilWindow(windowTitle);
await windowTool('move', windowTitle, 20, 20, 440, 900);
await shot('window-idle');

const witness = await Witness.open();
await page.evaluate(() => window.updateSpammer('0,0,0,100,0,0,1,10,0'));
await witness.focus();
await xdotool('key', 'F6');
await ravelin.untilStatus((status) => status.autoClicking, 'the clicker to run');
await shot('window-clicking');
await xdotool('key', 'F10');
await ravelin.untilStatus((status) => !status.unlocked, 'the lock');
await shot('window-locked');
await xdotool('key', 'F10');
await page.evaluate(() => window.reassignKey('auto'));
await ravelin.untilStatus((status) => status.reassigning === 'auto', 'the capture');
await shot('window-capturing');
await xdotool('key', 'Escape');
await xdotool('key', 'F8');
await ravelin.untilStatus((status) => status.state === 'Recording', 'the recording');
await xdotool('mousemove_relative', 20, 10);
await shot('window-recording');
await xdotool('key', 'F8');
await windowTool('move', windowTitle, 20, 20, 900, 900);
await shot('window-wide');
await witness.close();
await ravelin.close();
