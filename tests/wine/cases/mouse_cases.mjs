// Real mouse input on the window as the page sees it.
import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import path from 'node:path';
import { root, until, xdotool } from '../../e2e/lib/wine.mjs';
import { BrowserHost, pageText } from '../lib/browser_host.mjs';
import { test } from '../lib/harness.mjs';

test('a click reaches a button', async () => {
    const host = await BrowserHost.open();
    await host.click(80, 40);
    assert.deepEqual(await host.reported('click'), ['click', 'press', 0, 1, '']);
    await host.close();
});

test('two quick clicks are a double click, a third counts on', async () => {
    const host = await BrowserHost.open();
    await host.moveTo(80, 40);
    await xdotool('click', '--repeat', 3, '--delay', 1, 1);
    await host.reported('dblclick', (name, button, detail) => name === 'press' && button === 0 && detail === 2);
    await host.reported('click', (name, button, detail) => detail === 3);
    await host.close();
});

test('clicks far apart are single clicks', async () => {
    const host = await BrowserHost.open();
    await host.click(30, 30);
    await host.click(120, 50);
    await host.reported('click');
    assert.deepEqual(await host.reported('click'), ['click', 'press', 0, 1, '']);
    assert.deepEqual(host.since('dblclick'), []);
    await host.close();
});

test('middle and right button arrive as such', async () => {
    const host = await BrowserHost.open({ options: ['--application'] });
    await host.click(80, 40, 2);
    assert.deepEqual(await host.reported('auxclick'), ['auxclick', 'press', 1, 1, '']);
    await host.click(80, 40, 3);
    assert.deepEqual(await host.reported('contextmenu'), ['contextmenu', 'press', 2, 0, '']);
    // An application's view shows no menu that would take the next click.
    await host.click(80, 40);
    assert.deepEqual(await host.reported('click'), ['click', 'press', 0, 1, '']);
    await host.close();
});

test('a modifier key held during a click is seen', async () => {
    const host = await BrowserHost.open();
    await host.moveTo(80, 40);
    await xdotool('keydown', 'shift', 'click', 1, 'keyup', 'shift');
    assert.deepEqual(await host.reported('click'), ['click', 'press', 0, 1, 'shift']);
    await host.close();
});

test('hovering shows and ends with the pointer outside the window', async () => {
    const host = await BrowserHost.open();
    await host.moveTo(60, 140);
    await host.reported('pointerenter');
    await until(async () => (await host.colour(90, 150)) === '#00ff01', 'the hovered colour');
    await xdotool('mousemove', 1200, 900);
    await host.reported('pointerleave');
    await until(async () => (await host.colour(90, 150)) === '#ff0001', 'the resting colour');
    await host.close();
});

test('a drag keeps its button and its moves beyond the edge of the window', async () => {
    const host = await BrowserHost.open();
    await host.moveTo(60, 140);
    await host.press();
    await host.reported('pointerdown', (x, y, buttons) => x === 60 && y === 140 && buttons === 1);
    await host.moveTo(100, 160);
    await host.reported('pointermove', (x, y, buttons) => x === 100 && y === 160 && buttons === 1);
    await host.moveTo(700, 600);
    await host.reported('pointermove', (x, y, buttons) => x === 700 && y === 600 && buttons === 1);
    await xdotool('mouseup', 1);
    await host.reported('pointerup', (x, y, buttons) => x === 700 && y === 600 && buttons === 0);
    await host.close();
});

test('a drag that another window takes over ends for the page', async () => {
    const page = pageText('events.html').replace("say('script'", "box.addEventListener('pointerdown', () => grabMouse()); say('script'");
    const host = await BrowserHost.open({ page });
    await host.moveTo(60, 140);
    await host.press();
    await host.reported('pointerdown');
    await host.reported('pointermove', (x, y, buttons) => buttons === 0);
    await xdotool('mouseup', 1);
    await host.click(80, 40);
    await host.reported('click', (name) => name === 'press');
    await host.close();
});

test('the wheel scrolls what is under the pointer, both ways and sideways', async () => {
    const host = await BrowserHost.open();
    await host.moveTo(280, 60);
    await xdotool('click', 5);
    await host.reported('wheel', (x, y) => x === 0 && y === 100);
    await host.reported('scroll', (left, top) => top === 100);
    await xdotool('click', 4);
    await host.reported('wheel', (x, y) => y === -100);
    await host.reported('scroll', (left, top) => top === 0);
    await xdotool('click', 7);
    await host.reported('wheel', (x) => x === 100);
    await host.reported('scroll', (left) => left === 100);
    await host.close();
});

test('dragging with the system data transfer drops on its target', async () => {
    const host = await BrowserHost.open();
    await host.moveSeenTo(60, 200);
    await host.press();
    await host.moveTo(70, 200);
    await host.reported('dragstart');
    for (let x = 100; x <= 260; x += 40) await host.moveSeenTo(x, 200);
    await xdotool('mouseup', 1);
    await host.reported('drop', (cargo) => cargo === 'cargo');
    await host.reported('dragend');
    await host.click(80, 40);
    await host.reported('click', (name) => name === 'press');
    await host.close();
});

test('rows are sorted by dragging them with Sortable', async () => {
    const library = readFileSync(path.join(root, 'ui/node_modules/sortablejs/Sortable.min.js'), 'utf8');
    const page = pageText('sortable.html').replace('<script src="vendor/Sortable.min.js"></script>', () => `<script>${library}</script>`);
    const host = await BrowserHost.open({ page });
    await host.moveSeenTo(60, 20);
    await host.press();
    for (let y = 28; y <= 108; y += 8) await host.moveSeenTo(60, y);
    await xdotool('mouseup', 1);
    assert.deepEqual(await host.reported('order'), ['order', 'two', 'three', 'one']);
    await host.close();
});

test('the pointer takes the shape that the page asks for', async () => {
    const page = pageText('events.html').replace("say('script'", "setInterval(async () => say('pointer', await pointer()), 50); say('script'");
    const host = await BrowserHost.open({ page });
    await host.moveTo(80, 40);
    await host.reported('pointer', (shape) => shape === 'hand');
    await host.moveTo(80, 93);
    await host.reported('pointer', (shape) => shape === 'text');
    await host.moveTo(60, 140);
    await host.reported('pointer', (shape) => shape === 'arrow');
    await host.close();
});
