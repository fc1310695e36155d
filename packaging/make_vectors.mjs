// node make_vectors.mjs --web-host HOST --api-host HOST --out VECTORS.TXT
//
// Writes test vectors for `Ravelin.exe --selftest-update=VECTORS.TXT`, signed with a key that is
// made for them and forgotten. The hosts are those of the build under test.
import { writeFileSync } from 'node:fs';
import { vectorLines } from './update_vectors.mjs';
import { readOptions } from './update_signing.mjs';

const { 'web-host': webHost, 'api-host': apiHost, out } = readOptions(
    'usage: node make_vectors.mjs --web-host HOST --api-host HOST --out VECTORS.TXT',
    ['web-host', 'api-host', 'out'],
);
writeFileSync(out, vectorLines(webHost, apiHost).join('\n') + '\n');
