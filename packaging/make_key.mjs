// node make_key.mjs FOLDER
//
// Makes a key pair for update manifests: private.pem, readable by its owner alone, and public.txt
// with X then Y in hexadecimal, which a build takes as RAVELIN_UPDATE_KEY. Never replaces a key and
// never writes into what version control would pick up.
import { execFileSync } from 'node:child_process';
import { existsSync, mkdirSync, writeFileSync } from 'node:fs';
import { dirname, join, resolve } from 'node:path';
import { fail, makePrivateKey, publicPoint } from './update_signing.mjs';

const [folder] = process.argv.slice(2);
if (!folder) fail('usage: node make_key.mjs FOLDER');
const privateFile = resolve(folder, 'private.pem');
if (existsSync(privateFile)) fail(`${privateFile} exists; a key is never replaced`);

function git(where, ...args) {
    try {
        return execFileSync('git', ['-C', where, ...args], { stdio: ['ignore', 'pipe', 'ignore'] }).toString().trim();
    } catch {
        return undefined;
    }
}

let existing = resolve(folder);
while (!existsSync(existing)) existing = dirname(existing);
const inTree = git(existing, 'rev-parse', '--is-inside-work-tree') === 'true';
if (inTree && git(existing, 'check-ignore', privateFile) === undefined) {
    fail(`${folder} lies in a version-controlled tree; keep private keys elsewhere`);
}

const key = makePrivateKey();
const point = publicPoint(key);
mkdirSync(folder, { recursive: true, mode: 0o700 });
writeFileSync(privateFile, key.export({ type: 'pkcs8', format: 'pem' }), { mode: 0o600, flag: 'wx' });
writeFileSync(join(folder, 'public.txt'), point + '\n');
console.log(`RAVELIN_UPDATE_KEY=${point}`);
