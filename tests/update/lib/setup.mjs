// Setup programs for this build and the next version, and what they leave on the machine.
import { execFileSync } from 'node:child_process';
import { copyFileSync, cpSync, existsSync, mkdirSync, readFileSync, readdirSync, rmSync } from 'node:fs';
import path from 'node:path';
import { prefix, programFolder, root, runToEnd, scratch, toolFolder, until, windowsPath } from '../../e2e/lib/wine.mjs';

/** What an update passes, but for the scope and the word that it is one. */
export const silently = ['/VERYSILENT', '/SUPPRESSMSGBOXES', '/NORESTART', '/SP-', '/CLOSEAPPLICATIONS', '/NORESTARTAPPLICATIONS'];

const folder = path.join(scratch, 'setup');
const program = path.join(folder, 'program');

function makeSetup(generated, executable) {
    const product = path.join(toolFolder, generated, 'product.nsh');
    const text = readFileSync(product, 'utf8');
    const constant = (name) => text.match(new RegExp(`!define ${name} "(.*)"`))[1];
    const version = constant('VERSION');
    const setup = { version, key: constant('UNINSTALL_KEY'), file: path.join(folder, `ravelin-setup-${version}.exe`) };
    rmSync(program, { recursive: true, force: true });
    mkdirSync(program, { recursive: true });
    for (const name of ['libwebview.dll', 'ui']) cpSync(path.join(programFolder, name), path.join(program, name), { recursive: true });
    copyFileSync(path.join(toolFolder, executable), path.join(program, 'Ravelin.exe'));
    execFileSync(path.join(root, 'packaging/setup/make_setup.sh'), [product, program, setup.file, '-DQUICKLY'], { timeout: 300_000 });
    return setup;
}

export const thisSetup = () => makeSetup('generated', 'Ravelin.exe');
export const nextSetup = () => makeSetup('generated-next', 'ravelin_next.exe');

export async function runSetup(setup, ...switches) {
    return (await runToEnd(windowsPath(setup.file), switches, { cwd: folder })).code;
}

const drive = path.join(prefix, 'drive_c');
const user = path.join(drive, 'users', process.env.USER ?? 'root');

/** Where each scope keeps things. */
export const scopes = {
    '/ALLUSERS': {
        root: 'HKLM', folder: path.join(drive, 'Program Files/Ravelin'), windowsFolder: 'C:\\Program Files\\Ravelin',
        shortcut: path.join(drive, 'ProgramData/Microsoft/Windows/Start Menu/Programs/Ravelin.lnk'),
    },
    '/CURRENTUSER': {
        root: 'HKCU', folder: path.join(user, 'AppData/Local/Programs/Ravelin'),
        windowsFolder: `C:\\users\\${path.basename(user)}\\AppData\\Local\\Programs\\Ravelin`,
        shortcut: path.join(user, 'AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Ravelin.lnk'),
    },
};

export async function registryValue(hive, key, name) {
    const { code, output } = await runToEnd('reg', ['query', `${hive}\\${key}`, '/v', name, ...(hive === 'HKLM' ? ['/reg:64'] : [])]);
    return code === 0 ? output.match(/REG_\w+ +(.*?)\r?$/m)[1] : undefined;
}

/** The files below a folder, by their paths in it. */
export function filesIn(where) {
    if (!existsSync(where)) return [];
    return readdirSync(where, { recursive: true, withFileTypes: true })
        .filter((entry) => entry.isFile())
        .map((entry) => path.relative(where, path.join(entry.path, entry.name)))
        .sort();
}

/** Runs the uninstaller of a folder, which works on behind its own back, to its end. */
export async function uninstall(where, windowsFolder, ...switches) {
    const file = path.join(where, 'Uninstall.exe');
    if (!existsSync(file)) return;
    await runToEnd(`${windowsFolder}\\Uninstall.exe`, ['/S', ...switches], { cwd: drive });
    await until(() => !existsSync(file), 'the uninstaller', 60_000);
}

export async function uninstallAll() {
    for (const [scope, { folder: where, windowsFolder }] of Object.entries(scopes)) {
        await uninstall(where, windowsFolder, scope);
        rmSync(where, { recursive: true, force: true });
    }
}
