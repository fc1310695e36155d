// The manifests that every build must tell apart.
import { keyBlob, makePrivateKey, signedMessage, signMessage } from './update_signing.mjs';

const digest = '0123456789abcdef'.repeat(4);

/** The lines of a vectors file: a key, then cases signed with it. */
export function vectorLines(webHost, apiHost) {
    const key = makePrivateKey();
    const stranger = makePrivateKey();
    const lines = [JSON.stringify({ line: 'key', hex: keyBlob(key).toString('hex') })];

    // `signed` is what the signature covers, `shown` what the manifest says instead.
    const add = (name, expect, { signed = {}, shown = {}, build = {}, signer = key, sig } = {}) => {
        const members = { tier: 'home', version: '1.0.2', url: `https://${webHost}/download/setup.exe`, sha256: digest, ...signed };
        lines.push(JSON.stringify({
            line: 'case', name, expect,
            expectedTier: build.tier ?? 'home', ownVersion: build.version ?? '1.0.1',
            ...members, ...shown,
            sig: (sig ?? ((s) => s))(signMessage(signedMessage(members), signer)),
        }));
    };

    add('newer release from the web host', true);
    add('newer release from the API host', true, { signed: { url: `https://${apiHost}/download/setup.exe` } });
    add('host in upper case', true, { signed: { url: `https://${webHost.toUpperCase()}/setup.exe` } });
    add('signature in upper case', true, { sig: (s) => s.toUpperCase() });
    add('newer minor version with a smaller patch', true, { signed: { version: '1.1.0' }, build: { version: '1.0.9' } });
    add('pre-release of a newer version', true, { signed: { version: '1.0.2-beta.1' } });
    add('release after its pre-release', true, { build: { version: '1.0.2-beta.3' } });
    add('later pre-release', true, { signed: { version: '1.0.2-beta.10' }, build: { version: '1.0.2-beta.9' } });
    add('manifest of the build that it is for', true, { signed: { tier: 'studio' }, build: { tier: 'studio' } });

    add('equal version', false, { signed: { version: '1.0.1' } });
    add('older version', false, { signed: { version: '1.0.0' } });
    add('pre-release of the own version', false, { signed: { version: '1.0.1-beta.3' } });
    add('equal pre-release', false, { signed: { version: '1.0.2-beta.3' }, build: { version: '1.0.2-beta.3' } });
    add('version with a leading letter', false, { signed: { version: 'v1.0.2' } });
    add('version of two numbers', false, { signed: { version: '1.2' } });
    add('version with another suffix', false, { signed: { version: '1.0.2-rc.1' } });
    add('version with six digits', false, { signed: { version: '1.0.100000' } });
    add('own version that is none', false, { build: { version: 'dev' } });

    add('other tier', false, { signed: { tier: 'studio' } });
    add('unknown tier', false, { signed: { tier: 'gold' }, build: { tier: 'gold' } });
    add('tier in upper case', false, { signed: { tier: 'HOME' } });

    add('signature by another key', false, { signer: stranger });
    add('tier changed after signing', false, { signed: { tier: 'studio' }, shown: { tier: 'home' } });
    add('version changed after signing', false, { shown: { version: '1.0.3' } });
    add('url changed after signing', false, { shown: { url: `https://${webHost}/download/other.exe` } });
    add('digest changed after signing', false, { shown: { sha256: '1' + digest.slice(1) } });
    add('no signature', false, { sig: () => '' });
    add('signature one byte short', false, { sig: (s) => s.slice(2) });
    add('signature one byte long', false, { sig: (s) => s + '00' });
    add('signature that is no hexadecimal', false, { sig: (s) => 'x' + s.slice(1) });
    add('signature of zeros', false, { sig: () => '0'.repeat(128) });

    add('digest in upper case', false, { signed: { sha256: digest.toUpperCase() } });
    add('digest one digit short', false, { signed: { sha256: digest.slice(1) } });
    add('url with a blank', false, { signed: { url: `https://${webHost}/set up.exe` } });
    add('url with a bar', false, { signed: { url: `https://${webHost}/set|up.exe` } });
    add('plain http', false, { signed: { url: `http://${webHost}/setup.exe` } });
    add('prefix in upper case', false, { signed: { url: `HTTPS://${webHost}/setup.exe` } });
    add('other host', false, { signed: { url: 'https://unrelated.example/setup.exe' } });
    add('look-alike host', false, { signed: { url: `https://${webHost}.unrelated.example/setup.exe` } });
    add('host behind a user name', false, { signed: { url: `https://${webHost}@unrelated.example/setup.exe` } });
    add('explicit port', false, { signed: { url: `https://${webHost}:8443/setup.exe` } });
    return lines;
}
