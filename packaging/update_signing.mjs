// What the release tools share: keys, the signed line, signatures.
import { createHash, createPrivateKey, createPublicKey, generateKeyPairSync, sign } from 'node:crypto';
import { createReadStream, readFileSync } from 'node:fs';
import { pipeline } from 'node:stream/promises';

const toHex = (base64url) => Buffer.from(base64url, 'base64url').toString('hex').padStart(64, '0');

export function makePrivateKey() {
    return generateKeyPairSync('ec', { namedCurve: 'P-256' }).privateKey;
}

export function readPrivateKey(file) {
    const key = createPrivateKey(readFileSync(file));
    publicPoint(key);
    return key;
}

/** X then Y, 128 hexadecimal digits: how a build is told which key to trust. */
export function publicPoint(privateKey) {
    const { crv, x, y } = createPublicKey(privateKey).export({ format: 'jwk' });
    if (crv !== 'P-256') throw new Error('the key is no P-256 key');
    return toHex(x) + toHex(y);
}

/** The public key as Windows imports it: magic, key length, X, Y. */
export function keyBlob(privateKey) {
    return Buffer.concat([Buffer.from('ECS1'), Buffer.from([32, 0, 0, 0]), Buffer.from(publicPoint(privateKey), 'hex')]);
}

export function signedMessage({ tier, version, url, sha256 }) {
    return `RVN-UPDATE-1|${tier}|${version}|${url}|${sha256}`;
}

/** r then s, 64 bytes, in hexadecimal. */
export function signMessage(message, key) {
    return sign('sha256', Buffer.from(message), { key, dsaEncoding: 'ieee-p1363' }).toString('hex');
}

/** The members of a manifest with the signature behind them. */
export function signManifest({ tier, version, url, sha256 }, key) {
    const members = { tier, version, url, sha256 };
    return { ...members, sig: signMessage(signedMessage(members), key) };
}

export async function fileSha256(file) {
    const hash = createHash('sha256');
    await pipeline(createReadStream(file), hash);
    return hash.digest('hex');
}

/** The options of a tool, all of them needed; a wrong call ends with the usage. */
export function readOptions(usage, names) {
    const options = {};
    const words = process.argv.slice(2);
    while (words.length > 0) {
        const name = words.shift().replace(/^--/, '');
        if (!names.includes(name) || words.length === 0) fail(usage);
        options[name] = words.shift();
    }
    if (names.some((name) => options[name] === undefined)) fail(usage);
    return options;
}

/** Ends a tool with a message instead of a stack. */
export function fail(message) {
    console.error(message);
    process.exit(1);
}
