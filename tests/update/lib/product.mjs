// The build under test: what it is called and whom it trusts.
import { readFileSync } from 'node:fs';
import path from 'node:path';
import { readPrivateKey, signManifest } from '../../../packaging/update_signing.mjs';
import { build, toolFolder } from '../../e2e/lib/wine.mjs';

/** What a build knows of itself: this one, or the one before ("beta") or at ("next") the next release. */
export function productOf(name) {
    const folder = name ? `generated-${name}` : 'generated';
    return JSON.parse(readFileSync(path.join(toolFolder, folder, 'product.json'), 'utf8'));
}

export const { webHost, apiHost, unrelatedHost, tier, version } = productOf();

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
