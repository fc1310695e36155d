// A few lines to run tests by: one printed line each, and a closing count.
import { performance } from 'node:perf_hooks';
import { within } from '../../e2e/lib/wine.mjs';

// Far more than any test takes on a busy machine; every wait inside has a limit of its own.
const testLimit = 180_000;

const tests = [];
const cleanUps = [];

export function test(name, body) {
    tests.push({ name, body });
}

/** To be done at the end of the current test, however it ends. */
export function atEnd(cleanUp) {
    cleanUps.push(cleanUp);
}

/** Runs all, one after the other, whatever becomes of each; gives the errors. */
async function failuresOf(actions) {
    const errors = [];
    for (const action of actions) {
        try {
            await action();
        } catch (error) {
            errors.push(error);
        }
    }
    return errors;
}

/** Runs every test whose name contains the word; gives the number of failures. */
export async function runTests(word = '') {
    let passed = 0;
    let failed = 0;
    for (const { name, body } of tests.filter((each) => each.name.includes(word))) {
        const began = performance.now();
        const errors = await failuresOf([() => within(testLimit, body(), 'the test to end')]);
        errors.push(...(await failuresOf(cleanUps.splice(0))));
        if (errors.length === 0) {
            passed++;
            console.log(`ok      ${name} (${Math.round(performance.now() - began)} ms)`);
        } else {
            failed++;
            console.log(`FAILED  ${name}`);
            for (const error of errors) console.log('    ' + String(error?.stack ?? error).replaceAll('\n', '\n    '));
        }
    }
    console.log(`${passed} passed, ${failed} failed`);
    return failed;
}
