// The whole way of an update: the installed program finds it, shows it, downloads it and hands over.
import assert from 'node:assert/strict';
import { createHash } from 'node:crypto';
import { existsSync, mkdirSync, readdirSync, readFileSync, rmSync } from 'node:fs';
import path from 'node:path';
import test, { after, afterEach, before, beforeEach } from 'node:test';
import { signManifest } from '../../packaging/update_signing.mjs';
import { Ravelin, windowTitle } from '../e2e/lib/ravelin.mjs';
import { prefix, screenshot, scratch, textOf, toolFolder, until, windowsPath, within } from '../e2e/lib/wine.mjs';
import { untilWindow, windowState, windowTool } from '../e2e/lib/windows.mjs';
import { makeAuthority, makeCertificate } from './lib/certificates.mjs';
import { Probe } from './lib/probe.mjs';
import { apiHost, key, productOf, tier, webHost } from './lib/product.mjs';
import { body, inPieces, Server } from './lib/server.mjs';
import { makeSetup, registryValue, removeAll, runSetup, scopes, silently } from './lib/setup.mjs';

const manifestUrl = `https://${webHost}/update/${tier}.json`;
const installerUrl = `https://${apiHost}/download/setup.exe`;
const authority = makeAuthority('trusted');
const messages = {
    start: 'Update failed: could not start the installer.',
    gone: 'Update failed: the update is no longer available. Try again later.',
    match: 'Update failed: the downloaded file did not match what was expected, so nothing was installed.',
};

// Where the engines of programs that the shell starts write their ports.
const portsOfTheShell = process.env.RAVELIN_TEST_DEVTOOLS_DIR;

let server, probe, setup, beta, next, ravelin;

before(async () => {
    setup = makeSetup('this');
    beta = makeSetup('beta');
    next = makeSetup('next');
    server = await Server.open(makeCertificate(authority, [webHost, apiHost]));
    probe = await Probe.open();
    await probe.trust(authority);
    await until(async () => (await probe.send('running', 'explorer.exe')).running === 1, 'one shell', 60_000);
});
beforeEach(async () => {
    server.reset();
    await removeAll(probe, setup);
    rmSync(portsOfTheShell, { recursive: true, force: true });
    mkdirSync(portsOfTheShell);
    // What was handed over stays for the next start to sweep, if it is the administrators'.
    for (const name of downloadFolders()) rmSync(path.join(temporary, name), { recursive: true });
});
afterEach(async () => {
    await ravelin?.detach();
    ravelin = undefined;
});
after(async () => {
    if (probe && setup) await removeAll(probe, setup);
    await probe?.close();
    await server?.close();
});

/** Offers an installer as the next version, sent by `handler`. */
function offer(installer, handler = body(installer), version = next.version) {
    const sha256 = createHash('sha256').update(installer).digest('hex');
    server.on(manifestUrl, body(JSON.stringify(signManifest({ tier, version, url: installerUrl, sha256 }, key))));
    server.on(installerUrl, handler);
}

async function openInstalled(scope, options = {}) {
    ravelin = await Ravelin.open({ program: `${scopes[scope].windowsFolder}\\Ravelin.exe`, ...options });
    const page = await ravelin.page();
    page.setDefaultTimeout(60_000);
    return page;
}

const temporary = path.join(prefix, 'drive_c/users', process.env.USER ?? 'root', 'Temp');

/** The folders of downloads in the user's folder for temporary files. */
function downloadFolders() {
    return readdirSync(temporary).filter((name) => name.startsWith('Ravelin-update-'));
}

async function untilOffered(page) {
    await page.getByText(`Ravelin ${next.version} is available.`).waitFor();
}

const updateButton = (page) => page.getByRole('button', { name: 'Update', exact: true });

/** Watches the page's progress bar; gives what it shows from now on. */
async function watchProgress(page) {
    await page.evaluate(() => {
        window.seen = [];
        new MutationObserver(() => {
            const shown = document.querySelector('.progress .numbers')?.textContent;
            if (shown && window.seen.at(-1) !== shown) window.seen.push(shown);
        }).observe(document.body, { subtree: true, childList: true, characterData: true, attributes: true });
    });
}

/** Waits for the window of the program that was started in place of the one that `ravelin` started. */
async function untilStarted(title) {
    try {
        await untilWindow(title, undefined, 'the new version\'s window', 60_000);
    } catch (error) {
        const installed = await registryValue(probe, 'HKLM', setup.key, 'DisplayVersion');
        error.message += `\nversion ${installed} is installed, and the browser's log says ${textOf(ravelin.log)}`;
        throw error;
    }
}

/** The page of the program that was started in place of the one that `ravelin` started. */
async function newPage(oldPort) {
    await ravelin.detach();
    ravelin.attached = undefined;
    await until(() => !existsSync(oldPort), 'the old program\'s engine to end', 60_000);
    ravelin.ports = portsOfTheShell;
    const page = await ravelin.page();
    await page.waitForFunction(() => window.getSettings !== undefined);
    return page;
}

test('the next version is found, downloaded in sight, and runs in place of the old one', async () => {
    assert.equal(await runSetup(setup, ...silently, '/ALLUSERS'), 0);
    const installer = readFileSync(next.file);
    let goOn;
    offer(installer, inPieces(installer, 20, 50, new Promise((resolve) => (goOn = resolve))));
    const page = await openInstalled('/ALLUSERS');
    const oldPort = path.join(ravelin.ports, readdirSync(ravelin.ports).find((name) => name.endsWith('.port')));
    await page.evaluate(() => window.updateSpammer('0,0,0,77,0,0,1,10,0'));
    await page.evaluate(() => window.setAppSetting('showWarnings', '0'));

    await untilOffered(page);
    await screenshot('update-offered');
    await watchProgress(page);
    await updateButton(page).click();
    await until(async () => (await page.evaluate(() => window.seen)).some((text) => /of .* MB/.test(text)), 'progress', 60_000);
    await screenshot('update-progress');
    // Asked once more by whatever means, the program says that it is at it.
    assert.equal(await page.evaluate(() => window.startUpdate()), 'An update is already in progress.');
    const seen = await page.evaluate(() => window.seen);
    assert.ok(seen.every((text) => /^Starting|^\d+\.\d of \d+\.\d MB · \d+ %$/.test(text)), seen.join());
    goOn();

    assert.equal(await within(60_000, ravelin.run.exited, 'the old program to end'), 0);
    const nextTitle = windowTitle.replace(setup.version, next.version);
    await untilStarted(nextTitle);
    const renewed = await newPage(oldPort);
    await screenshot('update-done');
    assert.equal((await renewed.evaluate(() => window.getSettings())).sms, 77);
    assert.equal((await renewed.evaluate(() => window.getAppSettings())).showWarnings, false);
    assert.equal(await registryValue(probe, 'HKLM', setup.key, 'DisplayVersion'), next.version);
    assert.equal(await windowState(windowTitle), null);
    // With the rights of the user whose desktop it is, not with those of setup.
    const process = await windowTool('process', nextTitle);
    assert.deepEqual(await probe.send('parent', process), { parent: 'explorer.exe' });
    await windowTool('close', nextTitle);
    await until(async () => await windowState(nextTitle) === null, 'the new version to close', 60_000);
});

test('an installer that cannot be started is deleted, and the program goes on', async () => {
    assert.equal(await runSetup(setup, ...silently, '/ALLUSERS'), 0);
    offer(Buffer.from('no program at all'));
    const page = await openInstalled('/ALLUSERS');
    await untilOffered(page);
    await updateButton(page).click();
    // Windows says so first, as it does to everyone who starts such a file.
    await untilWindow('Error', undefined, 'the system\'s message', 60_000);
    await windowTool('press', 'Error', 1);
    await page.getByText(messages.start, { exact: true }).waitFor();
    await screenshot('update-failed');
    assert.deepEqual(downloadFolders(), []);
    assert.equal((await ravelin.statusNow()).state, 'Idle');

    // A second try meets whatever is offered by then.
    offer(Buffer.from('one file'), body('another'));
    await page.getByRole('button', { name: 'Try again' }).click();
    await page.getByText(messages.match, { exact: true }).waitFor();
    server.reset();
    await page.getByRole('button', { name: 'Try again' }).click();
    await page.getByText(messages.gone, { exact: true }).waitFor();
    assert.deepEqual(downloadFolders(), []);
    assert.equal(await ravelin.close(), 0);
});

test('an installer that fails gets its switches and leaves the old version as it was', async () => {
    assert.equal(await runSetup(setup, ...silently, '/CURRENTUSER'), 0);
    const log = path.join(scratch, 'installer-command.txt');
    rmSync(log, { force: true });
    offer(readFileSync(path.join(toolFolder, 'stand_in_installer.exe')));
    let page = await openInstalled('/CURRENTUSER', { env: { RAVELIN_INSTALLER_LOG: windowsPath(log), RAVELIN_INSTALLER_EXIT: '2' } });
    await page.evaluate(() => window.updateSpammer('0,0,0,66,0,0,1,10,0'));
    await untilOffered(page);
    await updateButton(page).click();
    assert.equal(await within(60_000, ravelin.run.exited, 'the program to hand over'), 0);
    const command = await until(() => textOf(log), 'the installer to run', 60_000);
    assert.match(command, /installer\.exe"? +\/VERYSILENT \/SUPPRESSMSGBOXES \/NORESTART \/SP- \/CLOSEAPPLICATIONS \/NORESTARTAPPLICATIONS \/CURRENTUSER \/RVNUPDATE=1$/);
    await ravelin.detach();

    page = await openInstalled('/CURRENTUSER', { keepData: true });
    assert.equal((await page.evaluate(() => window.getSettings())).sms, 66);
    assert.equal(await ravelin.close(), 0);
});

test('a pre-release is offered the final version and becomes it', async () => {
    assert.equal(await runSetup(beta, ...silently, '/ALLUSERS'), 0);
    assert.equal(await registryValue(probe, 'HKLM', setup.key, 'DisplayVersion'), beta.version);
    offer(readFileSync(next.file));
    const page = await openInstalled('/ALLUSERS');
    await untilWindow(productOf('beta').windowTitle);
    await untilOffered(page);
    await updateButton(page).click();
    assert.equal(await within(60_000, ravelin.run.exited, 'the pre-release to end'), 0);
    await untilStarted(productOf('next').windowTitle);
    assert.equal(await registryValue(probe, 'HKLM', setup.key, 'DisplayVersion'), next.version);
});

test('closing the program ends a download, and nothing of it stays', async () => {
    assert.equal(await runSetup(setup, ...silently, '/ALLUSERS'), 0);
    const installer = readFileSync(next.file);
    offer(installer, inPieces(installer, 20, 50, new Promise(() => {})));
    const page = await openInstalled('/ALLUSERS');
    await untilOffered(page);
    await updateButton(page).click();
    await page.getByText(/\d %$/).waitFor();
    assert.equal(downloadFolders().length, 1);
    assert.equal(await ravelin.close(), 0);
    assert.deepEqual(downloadFolders(), []);
});
