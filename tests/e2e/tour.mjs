// A guided tour of the real program with real input: what `./dev run` shows without a display.
import { Ravelin } from './lib/ravelin.mjs';
import { Witness } from './lib/witness.mjs';
import { screenshot, until, xdotool } from './lib/wine.mjs';

const say = (text) => console.log(text);
const pause = (milliseconds) => new Promise((resolve) => setTimeout(resolve, milliseconds));
const intervalMs = 20;
const seconds = 3;

say('Starting Ravelin.exe on a virtual desktop ...');
const ravelin = await Ravelin.open();
const page = await ravelin.page();
await page.locator('#panel-spammer').waitFor();
say(`  its page is there; the auto clicker's hotkey is ${ravelin.status().hkAuto}`);
await page.evaluate((ms) => window.updateSpammer(`0,0,0,${ms},0,0,1,10,0`), intervalMs);

say('Putting another program in front and pressing F6, a real keystroke ...');
const witness = await Witness.open();
await witness.focus();
await xdotool('key', 'F6');
await ravelin.untilStatus((status) => status.autoClicking, 'the clicker to run');
await pause(seconds * 1000);
await screenshot('tour-clicking');
await witness.seeStop(() => xdotool('key', 'F6'));
await ravelin.untilStatus((status) => !status.autoClicking, 'the clicker to stop');

const clicks = witness.fresh('left-down');
const span = clicks.at(-1).time - clicks[0].time;
const period = (span * 1000) / (clicks.length - 1);
say(`  ${clicks.length} clicks arrived in the other program within ${span.toFixed(2)} s`);
say(`  one every ${period.toFixed(2)} ms, ${(1000 / period).toFixed(1)} a second;`
    + ` the interval asks for one every ${intervalMs} ms, ${(1000 / intervalMs).toFixed(1)} a second at the most`);
say(`  keys that reached the other program: ${witness.fresh('key-down').length} (the hotkey stays hidden)`);

say('Recording with F8: moves, clicks, the wheel and keys by real input ...');
const deeds = () => witness.fresh().filter((line) => !['move', 'focus'].includes(line.kind));
await xdotool('key', 'F8');
await ravelin.untilStatus((status) => status.state === 'Recording', 'the recording to begin');
witness.mark();
await witness.point(-60, -40);
await xdotool('click', 1);
await witness.point(60, 40);
await xdotool('click', 3);
await xdotool('click', 5, 'key', 'h', 'key', 'i');
await until(() => deeds().length >= 9, 'the input to arrive');
await screenshot('tour-recording');
await xdotool('key', 'F8');
const recorded = await ravelin.untilStatus((status) => status.state === 'Idle', 'the recording to end');
const byHand = deeds();
say(`  ${recorded.count} events recorded, ${byHand.length} clicks, wheel turns and keys among them`);

say('Playing it back with F7 ...');
witness.mark();
await xdotool('key', 'F7');
await until(() => deeds().length >= byHand.length, 'the playback to arrive');
await ravelin.untilStatus((status) => status.state === 'Idle', 'the playback to end');
const played = deeds();
const late = played.map((line, i) => Math.abs(line.time - played[0].time - (byHand[i].time - byHand[0].time)) * 1000);
const same = played.every((line, i) => line.kind === byHand[i].kind);
say(`  ${played.length} arrived again, ${same ? 'the same ones in the same order' : 'NOT the same ones'};`
    + ` largest difference in time ${Math.max(...late).toFixed(1)} ms`);
await screenshot('tour-played');

await witness.close();
const code = await ravelin.close();
say(`Closed the window; Ravelin.exe ended with exit code ${code}.`);
say('Screenshots: build/screenshots/tour-*.png');
