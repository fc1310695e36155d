// node check_release.mjs PRODUCT.JSON THROW-AWAY-KEY.TXT
//
// Says what keeps a build from being a release: a key that only this machine has, with which no later
// release could update it, or addresses that lead nowhere.
import { existsSync, readFileSync } from 'node:fs';
import { pathToFileURL } from 'node:url';

// Set apart for documentation and tests.
const reserved = /(^|\.)(example|test|invalid|localhost|example\.(com|net|org))$/;

export function reasonsAgainst(product, throwAwayKey) {
    const reasons = [];
    if (product.updateKey.toLowerCase() === throwAwayKey?.trim().toLowerCase()) {
        reasons.push('it trusts the throw-away key of this machine; configure it with -DRAVELIN_UPDATE_KEY=...');
    }
    const hosts = { RAVELIN_WEB_HOST: product.webHost, RAVELIN_API_HOST: product.apiHost, RAVELIN_CHAT_URL: new URL(product.chatUrl).hostname };
    for (const [option, host] of Object.entries(hosts)) {
        if (reserved.test(host)) reasons.push(`${host} is a reserved name; configure it with -D${option}=...`);
    }
    return reasons;
}

if (import.meta.url === pathToFileURL(process.argv[1]).href) {
    const [product, key] = process.argv.slice(2);
    const reasons = reasonsAgainst(JSON.parse(readFileSync(product, 'utf8')), existsSync(key) ? readFileSync(key, 'utf8') : undefined);
    if (reasons.length > 0) {
        console.error(`This build is no release:\n  ${reasons.join('\n  ')}\nTo pack it all the same, for a trial: ./dev package --trial`);
        process.exit(1);
    }
}
