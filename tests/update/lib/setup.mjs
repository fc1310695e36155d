// Setup programs for this build and the versions that follow it, and what they leave on the machine.
import { execFileSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import { appendFileSync, copyFileSync, cpSync, existsSync, mkdirSync, readFileSync, readdirSync, rmSync, statSync, symlinkSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import { prefix, programFolder, root, runToEnd, scratch, toolFolder, until, windowsPath } from '../../e2e/lib/wine.mjs';
import { productOf } from './product.mjs';

/** What an update passes, but for the scope and the word that it is one. */
export const silently = ['/VERYSILENT', '/SUPPRESSMSGBOXES', '/NORESTART', '/SP-', '/CLOSEAPPLICATIONS', '/NORESTARTAPPLICATIONS'];
export const asUpdate = [...silently, '/RVNUPDATE=1'];

const folder = path.join(scratch, 'setup');

/** Everything that is shipped, as the packages' own list says. */
export const shipped = readFileSync(path.join(root, 'packaging/files.txt'), 'utf8').split('\n').filter((line) => line && !line.startsWith('#'));
export const installed = [...shipped, 'Uninstall.exe'].sort();

/** The folder of a version's files; those of other versions than this one differ in every file. */
function programOf(name) {
    if (name === 'this') return programFolder;
    const program = path.join(folder, `program-${name}`);
    rmSync(program, { recursive: true, force: true });
    for (const file of shipped) {
        mkdirSync(path.dirname(path.join(program, file)), { recursive: true });
        cpSync(path.join(programFolder, file), path.join(program, file));
    }
    copyFileSync(path.join(toolFolder, `ravelin_${name}.exe`), path.join(program, 'Ravelin.exe'));
    for (const file of shipped) appendFileSync(path.join(program, file), `\n<!-- ${name} -->\n`);
    return program;
}

/** The setup compiler's own folder but for the plug-in that says what the user is. */
function withAccountSwitch() {
    const copy = path.join(folder, 'nsis');
    const plugins = path.join(copy, 'Plugins/amd64-unicode');
    rmSync(copy, { recursive: true, force: true });
    mkdirSync(plugins, { recursive: true });
    for (const name of ['Contrib', 'Include', 'Stubs']) symlinkSync(`/usr/share/nsis/${name}`, path.join(copy, name));
    for (const name of readdirSync('/usr/share/nsis/Plugins/amd64-unicode')) {
        const original = path.join('/usr/share/nsis/Plugins/amd64-unicode', name);
        symlinkSync(name === 'UserInfo.dll' ? path.join(toolFolder, 'account-plugin', name) : original, path.join(plugins, name));
    }
    return copy;
}

/**
 * The setup program of a version: "this", "beta" or "next". With `account`, what the user is becomes a
 * matter of a switch, /ACCOUNT=; `options` are for the setup compiler.
 */
export function makeSetup(name, { account = false, options = [] } = {}) {
    const { version, installId } = productOf(name === 'this' ? undefined : name);
    const program = programOf(name);
    const variant = [account ? '-account' : '', ...options].join('');
    const setup = {
        name, version, program, title: `Ravelin Home ${version} Setup`,
        key: `Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\${installId}_is1`,
        file: path.join(folder, `ravelin-setup-${version}${variant}.exe`),
    };
    const generated = path.join(toolFolder, name === 'this' ? 'generated' : `generated-${name}`, 'product.nsh');
    const plugin = path.join(toolFolder, 'setup-plugin');
    // Made again by the next test file only when something that goes into it has changed.
    const inputs = JSON.stringify([options, account, readFileSync(generated, 'utf8'),
        ...[path.join(root, 'packaging'), plugin, program, path.join(toolFolder, 'account-plugin')].map((where) => contentsOf(where, 'node_modules'))]);
    if (existsSync(setup.file) && existsSync(`${setup.file}.inputs`) && readFileSync(`${setup.file}.inputs`, 'utf8') === inputs) return setup;
    execFileSync(path.join(root, 'packaging/setup/make_setup.sh'), [generated, plugin, program, setup.file, '-DQUICKLY', ...options],
        { timeout: 300_000, env: { ...process.env, ...(account ? { NSISDIR: withAccountSwitch() } : {}) } });
    writeFileSync(`${setup.file}.inputs`, inputs);
    return setup;
}

export async function runSetup(setup, ...switches) {
    return (await runToEnd(windowsPath(setup.file), switches, { cwd: folder, timeout: 120_000 })).code;
}

const drive = path.join(prefix, 'drive_c');
const user = path.join(drive, 'users', process.env.USER ?? 'root');
export const roaming = path.join(user, 'AppData/Roaming');

/** Where each scope keeps things. */
export const scopes = {
    '/ALLUSERS': {
        root: 'HKLM', folder: path.join(drive, 'Program Files/Ravelin'), windowsFolder: 'C:\\Program Files\\Ravelin',
        shortcut: path.join(drive, 'ProgramData/Microsoft/Windows/Start Menu/Programs/Ravelin.lnk'),
    },
    '/CURRENTUSER': {
        root: 'HKCU', folder: path.join(user, 'AppData/Local/Programs/Ravelin'),
        windowsFolder: `C:\\users\\${path.basename(user)}\\AppData\\Local\\Programs\\Ravelin`,
        shortcut: path.join(roaming, 'Microsoft/Windows/Start Menu/Programs/Ravelin.lnk'),
    },
};

export async function registryValue(probe, hive, key, name) {
    return (await probe.send('value', hive, `${key} | ${name}`)).value;
}

/** The files below a folder, by their paths in it. */
export function filesIn(where) {
    if (!existsSync(where)) return [];
    return readdirSync(where, { recursive: true, withFileTypes: true })
        .filter((entry) => entry.isFile())
        .map((entry) => path.relative(where, path.join(entry.path, entry.name)))
        .sort();
}

/** The same with the folders and what is in each file; one folder may be left out. */
export function contentsOf(where, but) {
    if (!existsSync(where)) return {};
    return Object.fromEntries(readdirSync(where, { recursive: true }).filter((name) => name.split('/')[0] !== but).sort().map((name) => {
        const file = path.join(where, name);
        return [name, statSync(file).isFile() ? createHash('sha256').update(readFileSync(file)).digest('hex') : 'folder'];
    }));
}

/** Which of the setups every shipped file in the folder comes from: its name, "mixed" or "none". */
export function versionIn(where, setups) {
    const names = shipped.map((file) => {
        const there = path.join(where, file);
        if (!existsSync(there)) return 'none';
        const bytes = readFileSync(there);
        return setups.find(({ program }) => readFileSync(path.join(program, file)).equals(bytes))?.name ?? 'unknown';
    });
    return new Set(names).size === 1 ? names[0] : 'mixed';
}

// The uninstaller works on as a copy of itself elsewhere, under one of these names.
const copies = ['Un.exe', 'Un_A.exe', 'Un_B.exe', 'Au_.exe'];

/** Runs the uninstaller of a folder, and its copy, to the end. */
export async function uninstall(probe, windowsFolder, ...switches) {
    await runToEnd(`${windowsFolder}\\Uninstall.exe`, ['/S', ...switches], { cwd: drive });
    await uninstallerEnded(probe);
}

export async function uninstallerEnded(probe) {
    await until(async () => {
        const counts = await Promise.all(copies.map((name) => probe.send('running', name)));
        return counts.every(({ running }) => running === 0);
    }, 'the uninstaller to end', 60_000);
}

/**
 * Runs it in its own place, where it cannot delete itself but tells how it ended. It takes the folder
 * only as the last of its words and without quotes, so there must be no blank in it.
 */
export async function uninstallInPlace(windowsFolder, ...switches) {
    return (await runToEnd(`${windowsFolder}\\Uninstall.exe`, ['/S', ...switches, `_?=${windowsFolder}`], { cwd: drive })).code;
}

/** Takes away what setups have left, without asking an uninstaller. */
export async function removeAll(probe, setup) {
    if ((await probe.send('running', 'Ravelin.exe')).running > 0) await runToEnd('taskkill', ['/f', '/im', 'Ravelin.exe']);
    await until(async () => (await probe.send('running', 'Ravelin.exe')).running === 0, 'the program to end', 60_000);
    for (const { root: hive, folder: where, shortcut } of Object.values(scopes)) {
        rmSync(where, { recursive: true, force: true });
        rmSync(shortcut, { force: true });
        await probe.send('forget', hive, setup.key);
    }
}
