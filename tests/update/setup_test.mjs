// Where the setup program puts things and what it says. How its runs end is in setup_runs_test.mjs.
import assert from 'node:assert/strict';
import { readFileSync, renameSync, rmSync, statSync } from 'node:fs';
import path from 'node:path';
import test, { after, before, beforeEach } from 'node:test';
import { Ravelin, windowTitle } from '../e2e/lib/ravelin.mjs';
import { prefix } from '../e2e/lib/wine.mjs';
import { untilWindow, windowState } from '../e2e/lib/windows.mjs';
import { Probe } from './lib/probe.mjs';
import { productOf } from './lib/product.mjs';
import { filesIn, installed, makeSetup, registryValue, removeAll, runSetup, scopes, silently, versionIn } from './lib/setup.mjs';
import { setupWizard } from './lib/wizard.mjs';

const everyone = scopes['/ALLUSERS'];
let setup, next, probe;

before(async () => {
    setup = makeSetup('this');
    next = makeSetup('next');
    probe = await Probe.open();
});
after(async () => {
    if (probe && setup) await removeAll(probe, setup);
    await probe?.close();
});
beforeEach(() => removeAll(probe, setup));

async function recorded(scope, name) {
    return await registryValue(probe, scopes[scope].root, setup.key, name);
}

for (const [scope, place] of Object.entries(scopes)) {
    const [other] = Object.keys(scopes).filter((name) => name !== scope);

    test(`${scope}: installs where this scope belongs and says so`, async () => {
        assert.equal(await runSetup(setup, ...silently, scope), 0);
        assert.deepEqual(filesIn(place.folder), installed);
        assert.ok(statSync(place.shortcut).size > 0);
        assert.equal(await recorded(scope, 'InstallLocation'), place.windowsFolder);
        assert.equal(await recorded(scope, 'DisplayVersion'), setup.version);
        assert.equal(await recorded(scope, 'DisplayName'), 'Ravelin Home');
        assert.equal(await recorded(scope, 'Publisher'), 'The Ravelin developers');
        // As Windows calls it.
        const command = await recorded(scope, 'QuietUninstallString');
        assert.equal(command.toUpperCase(), `"${place.windowsFolder}\\Uninstall.exe" ${scope} /S`.toUpperCase());
        assert.equal(await recorded(other, 'InstallLocation'), undefined);
        assert.equal(await windowState(windowTitle), null, 'nothing was started');
    });
}

test('an update goes where the program is, wherever that is', async () => {
    const folder = path.join(prefix, 'drive_c/Tools/Ravelin');
    rmSync(folder, { recursive: true, force: true });
    try {
        assert.equal(await runSetup(setup, ...silently, '/ALLUSERS', '/D=C:\\Tools\\Ravelin'), 0);
        assert.equal(await recorded('/ALLUSERS', 'InstallLocation'), 'C:\\Tools\\Ravelin');
        assert.equal(await runSetup(next, ...silently, '/ALLUSERS'), 0);
        assert.equal(await recorded('/ALLUSERS', 'DisplayVersion'), next.version);
        assert.equal(versionIn(folder, [setup, next]), 'next');
        assert.deepEqual(filesIn(everyone.folder), []);
    } finally {
        rmSync(folder, { recursive: true, force: true });
    }
});

test('a folder that is given stays the folder whatever scope is chosen in the wizard', async () => {
    const folder = path.join(prefix, 'drive_c/Tools/Ravelin');
    rmSync(folder, { recursive: true, force: true });
    try {
        const { code } = await setupWizard(setup, { scope: [1202, 1] }, { args: ['/D=C:\\Tools\\Ravelin'] });
        assert.equal(code, 0);
        assert.equal(await recorded('/CURRENTUSER', 'InstallLocation'), 'C:\\Tools\\Ravelin');
        assert.deepEqual(filesIn(folder), installed);
    } finally {
        rmSync(folder, { recursive: true, force: true });
    }
});

test('another folder\'s Ravelin is not closed', async () => {
    const ravelin = await Ravelin.open();
    await untilWindow(windowTitle);
    assert.equal(await runSetup(setup, ...silently, '/ALLUSERS'), 0);
    assert.notEqual(await windowState(windowTitle), null);
    assert.equal(await ravelin.close(), 0);
});

const browserKey = 'Software\\Microsoft\\EdgeUpdate\\Clients\\{F3017226-FE2A-4295-8BDF-00C3A9A7E4C5}';

test('the wizard tells the licence, which runtimes are missing and where to get them', async () => {
    const library = path.join(prefix, 'drive_c/windows/system32/vcruntime140_1.dll');
    await probe.send('forget', 'HKCU', browserKey);
    renameSync(library, `${library}.away`);
    try {
        const { code, shown } = await setupWizard(setup, {}, { pictures: 'setup' });
        assert.equal(code, 0);
        const said = (name) => shown.filter((page) => page.name === name).map(({ text }) => text);
        assert.match(said('welcome')[0], /under the MIT License.*LICENSE\.txt and THIRD-PARTY\.txt/s);
        assert.equal(said('runtime').length, 2);
        assert.match(said('runtime')[0], /Microsoft Edge WebView2 runtime, which is not installed.*https:\/\/go\.microsoft\.com\//s);
        assert.match(said('runtime')[1], /Microsoft Visual C\+\+ runtime, which is not installed.*https:\/\/aka\.ms\/vs\/17\/release\/vc_redist\.x64\.exe/s);
    } finally {
        renameSync(`${library}.away`, library);
    }
});

test('the wizard says nothing of runtimes that are there', async () => {
    await probe.send('set', 'HKCU', `${browserKey} | pv | 120.0.2210.91`);
    try {
        const { code, names } = await setupWizard(setup);
        assert.equal(code, 0);
        assert.deepEqual(names, ['welcome', 'scope', 'folder', 'finish']);
    } finally {
        await probe.send('forget', 'HKCU', browserKey);
    }
});

test('the setup program\'s own properties name the version, the publisher and the licence', () => {
    const bytes = readFileSync(setup.file);
    const { copyright, publisher } = productOf();
    assert.match(copyright, /MIT License/);
    for (const text of [copyright, publisher, setup.version]) assert.ok(bytes.includes(Buffer.from(`${text}\0`, 'utf16le')), text);
});
