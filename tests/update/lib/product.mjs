// The build under test: what it is called and whom it trusts.
import { readFileSync } from 'node:fs';
import path from 'node:path';
import { readPrivateKey, signManifest } from '../../../packaging/update_signing.mjs';
import { build, toolFolder } from '../../e2e/lib/wine.mjs';

const header = readFileSync(path.join(toolFolder, 'generated/product.h'), 'utf8');

function constant(name) {
    return header.match(new RegExp(`char ${name}\\[\\] = "(.*)";`))[1];
}

export const webHost = constant('webHost');
export const apiHost = constant('apiHost');
export const unrelatedHost = constant('unrelatedHost');
export const tier = constant('tier');
export const version = constant('version');

/** The private half of the key that this build trusts. */
export const key = readPrivateKey(path.join(build, 'update-key/private.pem'));

/** The members of a manifest that this build accepts, with changes made before signing. */
export function goodMembers(changes = {}) {
    return {
        tier, version: '99999.0.0', url: `https://${webHost}/setup.exe`, sha256: '0'.repeat(64),
        ...changes,
    };
}

export function signedManifest(changes = {}, signer = key) {
    return signManifest(goodMembers(changes), signer);
}
