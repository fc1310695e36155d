// node sign_manifest.mjs --key PRIVATE.PEM --installer SETUP.EXE --tier TIER --version VERSION
//     --url URL --out MANIFEST.JSON
//
// Writes the manifest that offers this installer, signed. URL is where the installer will be
// downloaded from: HTTPS, on one of the hosts that the builds allow.
import { writeFileSync } from 'node:fs';
import { fail, fileSha256, readOptions, readPrivateKey, signManifest } from './update_signing.mjs';

const { key, installer, tier, version, url, out } = readOptions(
    'usage: node sign_manifest.mjs --key PRIVATE.PEM --installer SETUP.EXE --tier TIER --version VERSION --url URL --out MANIFEST.JSON',
    ['key', 'installer', 'tier', 'version', 'url', 'out'],
);

// The builds refuse these in silence; better to hear it here.
if (!/^[a-z]+$/.test(tier)) fail('a tier is a word of lower-case letters');
if (!/^\d{1,5}\.\d{1,5}\.\d{1,5}(-beta\.\d{1,5})?$/.test(version)) fail('a version is MAJOR.MINOR.PATCH or MAJOR.MINOR.PATCH-beta.N');
if (!/^https:\/\/[a-z0-9.-]+(\/[!-{}~]*)?$/.test(url)) fail('the address must be HTTPS without port, user, blanks and "|"');

const manifest = signManifest({ tier, version, url, sha256: await fileSha256(installer) }, readPrivateKey(key));
writeFileSync(out, JSON.stringify(manifest, null, 2) + '\n');
