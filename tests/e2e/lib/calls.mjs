// What a Windows program asks of the system, call by call, as Wine writes it down.
import assert from 'node:assert/strict';
import { runToEnd } from './wine.mjs';

const debugKey = 'HKCU\\Software\\Wine\\Debug';

/** What a program is started with so that its calls are written into its output. */
export const recording = { WINEDEBUG: '-all,+relay' };

/** Runs the action while programs that are started with `recording` write down these functions, each as "module.Function". */
export async function whileRecording(functions, action) {
    await runToEnd('reg', ['add', debugKey, '/v', 'RelayInclude', '/d', functions.join(';'), '/f']);
    try {
        return await action();
    } finally {
        await runToEnd('reg', ['delete', debugKey, '/v', 'RelayInclude', '/f']);
    }
}

/**
 * The recorded calls: [{ line, thread, name, text, from }] in their order, `text` being the call
 * with its arguments and `from` where it returns to; and `result`, where the call came back.
 */
export function callsIn(output) {
    const calls = [];
    const open = new Map();
    output.split('\n').forEach((text, line) => {
        const [, thread, what, name, rest, from] = text.match(/^([0-9a-f]+):(Call|Ret ) [\w.]+\.(\w+)(\(.*) ret=([0-9a-f]+)/) ?? [];
        if (!thread) return;
        const key = `${thread} ${name} ${from}`;
        if (what === 'Call') {
            const call = { line, thread, name, text: name + rest, from: BigInt('0x' + from) };
            open.set(key, call);
            calls.push(call);
        } else if (open.has(key)) {
            open.get(key).result = rest.match(/retval=(\w+)/)[1];
        }
    });
    return calls;
}

/** Where threads began: [{ line, thread, argument }]. */
export function threadsIn(output) {
    return output.split('\n').flatMap((text, line) => {
        const [, thread, argument] = text.match(/^([0-9a-f]+):Starting thread proc \w+ \(arg=(\w+)\)/) ?? [];
        return thread ? [{ line, thread, argument: BigInt('0x' + argument) }] : [];
    });
}

/** The calls that the program itself makes, not those of libraries: those from near this one. */
export function fromTheProgram(calls, near) {
    const reach = 0x1000000n;
    return calls.filter(({ from }) => from > near - reach && from < near + reach);
}

/** Each pattern has its call, and they come in this order; gives the calls that fit. */
export function inOrder(calls, patterns) {
    let at = 0;
    return patterns.map((pattern, i) => {
        const found = calls.findIndex(({ text }, index) => index >= at && pattern.test(text));
        assert.ok(found >= 0, `there is no ${pattern} behind ${i > 0 ? patterns[i - 1] : 'the beginning'} in\n${calls.map(({ text }) => text).join('\n')}`);
        at = found + 1;
        return calls[found];
    });
}
