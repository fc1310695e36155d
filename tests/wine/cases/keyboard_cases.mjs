// Real keys, the focus and the browser's own keys.
import assert from 'node:assert/strict';
import { until, xdotool } from '../../e2e/lib/wine.mjs';
import { untilWindow } from '../../e2e/lib/windows.mjs';
import { BrowserHost, pageText } from '../lib/browser_host.mjs';
import { test } from '../lib/harness.mjs';

test('text is typed into a field, with Shift and Backspace', async () => {
    const host = await BrowserHost.open();
    await host.click(100, 93);
    await host.reported('focusin', (name) => name === 'field');
    await xdotool('type', '--delay', 20, 'aB c!7');
    await host.reported('value', (value) => value === 'aB c!7');
    await xdotool('key', 'BackSpace');
    await host.reported('value', (value) => value === 'aB c!');
    await xdotool('key', 'Home', 'Delete');
    await host.reported('value', (value) => value === 'B c!');
    await xdotool('key', 'ctrl+a', 'x');
    await host.reported('value', (value) => value === 'x');
    await host.close();
});

test('keys carry their physical key, meaning, modifiers and side', async () => {
    const host = await BrowserHost.open();
    await host.click(300, 250);
    host.forget();
    const expected = {
        a: ['a', 'KeyA', '', false, 0],
        'shift+a': ['A', 'KeyA', 'shift', false, 0],
        'ctrl+c': ['c', 'KeyC', 'ctrl', false, 0],
        Return: ['Enter', 'Enter', '', false, 0],
        Escape: ['Escape', 'Escape', '', false, 0],
        F6: ['F6', 'F6', '', false, 0],
        Left: ['ArrowLeft', 'ArrowLeft', '', false, 0],
        Page_Down: ['PageDown', 'PageDown', '', false, 0],
        KP_5: ['5', 'Numpad5', '', false, 3],
        KP_Enter: ['Enter', 'NumpadEnter', '', false, 3],
        space: [' ', 'Space', '', false, 0],
        'alt+z': ['z', 'KeyZ', 'alt', false, 0],
    };
    for (const [key, facts] of Object.entries(expected)) {
        await xdotool('key', key);
        assert.deepEqual(await host.reported('keydown', (name) => !['Shift', 'Control', 'Alt', 'NumLock'].includes(name)), ['keydown', ...facts], key);
        await host.reported('keyup', (name, code) => code === facts[1]);
    }
    await xdotool('key', 'Shift_L');
    assert.deepEqual(await host.reported('keydown'), ['keydown', 'Shift', 'ShiftLeft', 'shift', false, 1]);
    await host.close();
});

test('a held key repeats and says so', async () => {
    const host = await BrowserHost.open();
    await host.click(100, 93);
    host.forget();
    await xdotool('keydown', 'h');
    await host.reported('keydown', (key, code, modifiers, repeat) => key === 'h' && !repeat);
    await host.reported('keydown', (key, code, modifiers, repeat) => key === 'h' && repeat);
    await xdotool('keyup', 'h');
    await host.reported('keyup', (key) => key === 'h');
    await host.close();
});

test('a key that the page refuses gives no text', async () => {
    const host = await BrowserHost.open();
    await host.click(100, 93);
    await xdotool('type', '--delay', 20, 'aqb');
    await host.reported('value', (value) => value === 'ab');
    await host.close();
});

test('Tab and Shift+Tab walk the page, Space and Enter press its buttons', async () => {
    const host = await BrowserHost.open();
    await host.click(300, 250);
    host.forget();
    await xdotool('key', 'Tab');
    await host.reported('focusin', (name) => name === 'press');
    await xdotool('key', 'space');
    await host.reported('click', (name, button, detail) => name === 'press' && detail === 0);
    await xdotool('key', 'Tab');
    await host.reported('focusin', (name) => name === 'field');
    await xdotool('key', 'shift+Tab');
    await host.reported('focusin', (name) => name === 'press');
    await xdotool('key', 'Return');
    await host.reported('click', (name, button, detail) => name === 'press' && detail === 0);
    await host.close();
});

test('Tab goes on from the last element to the first', async () => {
    const host = await BrowserHost.open();
    await host.click(300, 250);
    const order = [];
    while (order.filter((name) => name === 'press').length < 3) {
        assert.ok(order.length < 20, `the focus went to ${order.join(', ')}`);
        host.forget();
        await xdotool('key', 'Tab');
        await until(() => host.since('keyup').length > 0, 'the key');
        order.push(...host.since('focusin').map(([, name]) => name));
    }
    await host.close();
});

test('the page has the focus when its window has it', async () => {
    const first = await BrowserHost.open();
    await first.click(100, 93);
    await first.reported('focus', (has) => has === true);
    const second = await BrowserHost.open();
    await second.moveAside();
    await second.click(100, 93);
    await first.reported('blur', (has) => has === false);
    await second.reported('focus', (has) => has === true);
    first.forget();
    await xdotool('type', 'z');
    await second.reported('keydown', (key) => key === 'z');
    await second.close();
    await first.click(100, 93);
    await first.reported('focus', (has) => has === true);
    await xdotool('type', 'y');
    await first.reported('value', (value) => value === 'y');
    assert.deepEqual(first.since('keydown').filter(([, key]) => key === 'z'), []);
    await first.close();
});

test('F5 and Ctrl+R load the page again, Ctrl+Plus and the wheel with Ctrl enlarge it', async () => {
    const host = await BrowserHost.open();
    await host.click(300, 250);
    for (const key of ['F5', 'ctrl+r']) {
        host.forget();
        await xdotool('key', key);
        await host.reported('script');
        await host.reported('ready');
    }
    await xdotool('key', 'ctrl+plus');
    await host.reported('size', (width, height, ratio) => ratio > 1.05);
    await xdotool('key', 'ctrl+0');
    await host.reported('size', (width, height, ratio) => ratio === 1);
    await xdotool('keydown', 'ctrl', 'click', 4, 'keyup', 'ctrl');
    await host.reported('size', (width, height, ratio) => ratio > 1.05);
    // The button is where the larger page shows it.
    await host.click(88, 44);
    await host.reported('click', (name) => name === 'press');
    await host.close();
});

test('an application without browser keys gets them all, and its page stays', async () => {
    const host = await BrowserHost.open({ options: ['--application'] });
    assert.match(host.run.output, /settings done/);
    await host.click(300, 250);
    host.forget();
    for (const key of ['F5', 'ctrl+r', 'ctrl+plus', 'ctrl+minus', 'F12', 'ctrl+p']) {
        await xdotool('key', key);
        await host.reported('keydown', (name) => name !== 'Control');
    }
    await host.moveTo(150, 250);
    await xdotool('keydown', 'ctrl', 'click', 4, 'keyup', 'ctrl');
    await host.click(80, 40);
    await host.reported('click', (name) => name === 'press');
    assert.deepEqual([...host.reports().filter(([kind]) => kind === 'script')].length, 1);
    assert.deepEqual(host.reports().filter(([kind, , , ratio]) => kind === 'size' && ratio !== 1), []);
    await host.close();
});

test('a browser menu opens on the right button and loads the page again', async () => {
    const host = await BrowserHost.open();
    host.forget();
    await host.click(80, 40, 3);
    await host.reported('contextmenu');
    await untilWindow(host.title, (state) => state.showsMenu, 'the menu');
    await xdotool('key', 'Down', 'Return');
    await host.reported('script');
    await host.close();
});
