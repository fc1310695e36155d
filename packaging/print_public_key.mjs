// node print_public_key.mjs PRIVATE.PEM
//
// Prints X then Y of the public half in hexadecimal, as a build takes it.
import { fail, publicPoint, readPrivateKey } from './update_signing.mjs';

const [file] = process.argv.slice(2);
if (!file) fail('usage: node print_public_key.mjs PRIVATE.PEM');
console.log(publicPoint(readPrivateKey(file)));
