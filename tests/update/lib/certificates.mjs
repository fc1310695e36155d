// Certificates that live as long as a test run, made with openssl.
import { execFileSync } from 'node:child_process';
import { mkdtempSync, readFileSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import { scratch } from '../../e2e/lib/wine.mjs';

const folder = mkdtempSync(path.join(scratch, 'certificates-'));
const file = (name) => path.join(folder, name);

function openssl(...args) {
    execFileSync('openssl', args, { stdio: ['ignore', 'pipe', 'pipe'] });
}

/** An authority; `file` is its certificate in DER. */
export function makeAuthority(name) {
    openssl('req', '-x509', '-newkey', 'ec', '-pkeyopt', 'ec_paramgen_curve:P-256', '-nodes', '-days', '2',
        '-subj', `/CN=${name}`, '-addext', 'keyUsage=critical,keyCertSign,cRLSign',
        '-keyout', file(`${name}.key`), '-out', file(`${name}.pem`));
    openssl('x509', '-in', file(`${name}.pem`), '-outform', 'DER', '-out', file(`${name}.der`));
    return { name, file: file(`${name}.der`) };
}

let serial = 0;

/** A server's certificate and key for these hosts, good for a day around now or expired. */
export function makeCertificate(authority, hosts, { expired = false } = {}) {
    const name = `server-${++serial}`;
    writeFileSync(file(`${name}.ext`), `subjectAltName=${hosts.map((host) => `DNS:${host}`).join(',')}\nextendedKeyUsage=serverAuth\n`);
    openssl('req', '-newkey', 'ec', '-pkeyopt', 'ec_paramgen_curve:P-256', '-nodes', '-subj', `/CN=${hosts[0]}`,
        '-keyout', file(`${name}.key`), '-out', file(`${name}.csr`));
    // A certificate that ends a day before it begins has ended at any time.
    openssl('x509', '-req', '-in', file(`${name}.csr`), '-CA', file(`${authority.name}.pem`),
        '-CAkey', file(`${authority.name}.key`), '-CAcreateserial', '-days', expired ? '-1' : '2',
        '-extfile', file(`${name}.ext`), '-out', file(`${name}.pem`));
    return { key: readFileSync(file(`${name}.key`)), cert: readFileSync(file(`${name}.pem`)) };
}
