// The setup program, silent and as a wizard.
import assert from 'node:assert/strict';
import { readFileSync, renameSync, rmSync, statSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test, { after, afterEach, before, beforeEach } from 'node:test';
import { Ravelin, windowTitle } from '../e2e/lib/ravelin.mjs';
import { dataFolder, prefix, runToEnd, screenshot, start, toolFolder, until, windowsPath, within, xdotool } from '../e2e/lib/wine.mjs';
import { untilWindow, windowState, windowTool } from '../e2e/lib/windows.mjs';
import { Probe } from './lib/probe.mjs';
import { filesIn, nextSetup, registryValue, runSetup, scopes, silently, thisSetup, uninstall, uninstallAll } from './lib/setup.mjs';

const installed = ['Ravelin.exe', 'Uninstall.exe', 'libwebview.dll', 'ui/index.html', 'ui/vendor/Sortable.min.js'];
const everyone = scopes['/ALLUSERS'];
const nextTitle = () => windowTitle.replace(setup.version, next.version);
const quietly = silently.filter((word) => word !== '/CLOSEAPPLICATIONS');

let setup, next, probe;

before(async () => {
    setup = thisSetup();
    next = nextSetup();
    probe = await Probe.open();
});
after(async () => await probe?.close());
beforeEach(uninstallAll);
afterEach(async () => {
    await runToEnd('taskkill', ['/f', '/im', 'Ravelin.exe']);
    await uninstallAll();
});

async function recorded(scope, name) {
    return await registryValue(scopes[scope].root, setup.key, name);
}

function isNext(folder) {
    return readFileSync(path.join(folder, 'Ravelin.exe')).equals(readFileSync(path.join(toolFolder, 'ravelin_next.exe')));
}

for (const [scope, place] of Object.entries(scopes)) {
    const [other] = Object.keys(scopes).filter((name) => name !== scope);

    test(`${scope}: installs where this scope belongs, and the uninstaller takes all of it away`, async () => {
        assert.equal(await runSetup(setup, ...silently, scope), 0);
        assert.deepEqual(filesIn(place.folder), installed);
        assert.equal(await recorded(scope, 'InstallLocation'), place.windowsFolder);
        assert.equal(await recorded(scope, 'DisplayVersion'), setup.version);
        assert.equal(await recorded(other, 'InstallLocation'), undefined);
        assert.ok(statSync(place.shortcut).size > 0);
        assert.equal(await windowState(windowTitle), null, 'nothing was started');

        // As Windows calls it.
        const command = await recorded(scope, 'QuietUninstallString');
        assert.equal(command.toUpperCase(), `"${place.windowsFolder}\\Uninstall.exe" ${scope} /S`.toUpperCase());
        await uninstall(place.folder, place.windowsFolder, scope);
        await until(() => filesIn(place.folder).length === 0, 'the folder to be empty', 60_000);
        await until(async () => await recorded(scope, 'InstallLocation') === undefined, 'the record to go', 60_000);
        await until(() => !statSync(place.shortcut, { throwIfNoEntry: false }), 'the shortcut to go', 60_000);
        await until(() => !statSync(place.folder, { throwIfNoEntry: false }), 'the folder to go', 60_000);
    });
}

test('the uninstaller closes the program and leaves what it did not install', async () => {
    const running = await openInstalled();
    const own = ['notes.txt', 'ui/theme.txt'];
    for (const name of own) writeFileSync(path.join(everyone.folder, name), 'mine');
    await uninstall(everyone.folder, everyone.windowsFolder);
    assert.equal(await within(30_000, running.run.exited, 'the program to end'), 0);
    await until(async () => await recorded('/ALLUSERS', 'InstallLocation') === undefined, 'the record to go', 60_000);
    assert.deepEqual(filesIn(everyone.folder), own);
    assert.ok(filesIn(dataFolder()).includes('session.dat'), 'settings and macros stay');
});

test('an update goes where the program is, wherever that is', async () => {
    const folder = path.join(prefix, 'drive_c/Tools/Ravelin');
    rmSync(folder, { recursive: true, force: true });
    assert.equal(await runSetup(setup, ...silently, '/ALLUSERS', '/D=C:\\Tools\\Ravelin'), 0);
    try {
        assert.equal(await recorded('/ALLUSERS', 'InstallLocation'), 'C:\\Tools\\Ravelin');
        assert.equal(await runSetup(next, ...silently, '/ALLUSERS'), 0);
        assert.equal(await recorded('/ALLUSERS', 'DisplayVersion'), next.version);
        assert.ok(isNext(folder));
        assert.deepEqual(filesIn(everyone.folder), []);
    } finally {
        await uninstall(folder, 'C:\\Tools\\Ravelin', '/ALLUSERS');
    }
});

async function openInstalled() {
    assert.equal(await runSetup(setup, ...silently, '/ALLUSERS'), 0);
    const ravelin = await Ravelin.open({ program: `${everyone.windowsFolder}\\Ravelin.exe` });
    await untilWindow(windowTitle);
    return ravelin;
}

test('an update closes a running Ravelin as its user would, and starts the new one', async () => {
    const old = await openInstalled();
    assert.equal(await runSetup(next, ...silently, '/ALLUSERS', '/RVNUPDATE=1'), 0);
    assert.equal(await within(30_000, old.run.exited, 'the old program'), 0);
    assert.ok(isNext(everyone.folder));
    await untilWindow(nextTitle());
});

test('without leave to close it, a silent setup gives up and changes nothing', async () => {
    const old = await openInstalled();
    assert.equal(await runSetup(next, ...quietly, '/ALLUSERS'), 2);
    assert.ok(!isNext(everyone.folder));
    assert.equal(await recorded('/ALLUSERS', 'DisplayVersion'), setup.version);
    assert.equal(await old.close(), 0);
});

test('another folder\'s Ravelin is not closed', async () => {
    const ravelin = await Ravelin.open();
    await untilWindow(windowTitle);
    assert.equal(await runSetup(setup, ...silently, '/ALLUSERS'), 0);
    assert.notEqual(await windowState(windowTitle), null);
    assert.equal(await ravelin.close(), 0);
});

test('an update that cannot replace a file leaves and starts the old version', async () => {
    assert.equal(await runSetup(setup, ...silently, '/ALLUSERS'), 0);
    await probe.send('hold', `${everyone.windowsFolder}\\Uninstall.exe`);
    try {
        assert.equal(await runSetup(next, ...silently, '/ALLUSERS', '/RVNUPDATE=1'), 2);
    } finally {
        await probe.send('release');
    }
    assert.ok(!isNext(everyone.folder));
    assert.equal(await recorded('/ALLUSERS', 'DisplayVersion'), setup.version);
    await untilWindow(windowTitle);
});

const browserKey = 'Software\\Microsoft\\EdgeUpdate\\Clients\\{F3017226-FE2A-4295-8BDF-00C3A9A7E4C5}';

/**
 * Goes through the wizard, lets it close a running Ravelin and answers No to what it says of
 * runtimes; gives all these texts.
 */
async function throughWizard() {
    const title = `Ravelin Home ${setup.version} Setup`;
    const run = start(windowsPath(setup.file));
    const shows = async (words) => await until(async () => {
        const text = await windowTool('text', title);
        return text && words.test(text) && text;
    }, `the wizard to show ${words}`, 60_000);
    for (const [words, picture] of [[/Welcome/, 'setup-welcome'], [/Anyone who uses this computer|Install for anyone/i, 'setup-scope'], [/Destination Folder/, 'setup-folder']]) {
        await shows(words);
        await screenshot(picture);
        await windowTool('press', title, 1);
    }
    const said = [];
    for (;;) {
        const text = await shows(/is running|needs the|Start Ravelin/);
        if (text.includes('Start Ravelin')) break;
        said.push(text);
        await screenshot(`setup-message-${said.length}`);
        await windowTool('press', title, text.includes('is running') ? 1 : 7);
        await until(async () => await windowTool('text', title) !== text, 'the message to go');
    }
    await screenshot('setup-finish');
    await windowTool('press', title, 1203);
    await windowTool('press', title, 1);
    assert.equal(await within(60_000, run.exited, 'the wizard to end'), 0);
    assert.deepEqual(filesIn(everyone.folder), installed);
    return said;
}

test('the wizard installs, and tells which runtimes are missing and where to get them', async () => {
    const library = path.join(prefix, 'drive_c/windows/system32/vcruntime140_1.dll');
    await runToEnd('reg', ['delete', `HKCU\\${browserKey}`, '/f']);
    renameSync(library, `${library}.away`);
    try {
        const said = await throughWizard();
        assert.equal(said.length, 2);
        assert.match(said[0], /Microsoft Edge WebView2 runtime, which is not installed.*https:\/\/go\.microsoft\.com\//s);
        assert.match(said[1], /Microsoft Visual C\+\+ runtime, which is not installed.*https:\/\/aka\.ms\/vs\/17\/release\/vc_redist\.x64\.exe/s);
    } finally {
        renameSync(`${library}.away`, library);
    }
});

test('the wizard asks before it closes the program, and says nothing of runtimes that are there', async () => {
    const running = await openInstalled();
    await runToEnd('reg', ['add', `HKCU\\${browserKey}`, '/v', 'pv', '/d', '120.0.2210.91', '/f']);
    try {
        const said = await throughWizard();
        assert.equal(said.length, 1);
        assert.match(said[0], /Ravelin is running\. Setup closes it now; your settings and macros are kept\./);
        assert.equal(await within(30_000, running.run.exited, 'the program to end'), 0);
    } finally {
        await runToEnd('reg', ['delete', `HKCU\\${browserKey}`, '/f']);
    }
});
