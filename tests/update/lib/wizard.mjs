// Goes through the wizard of a setup program or of its uninstaller.
import { screenshot, start, until, windowsPath, within } from '../../e2e/lib/wine.mjs';
import { windowTool } from '../../e2e/lib/windows.mjs';

/** What chooses a scope on the page of that name. */
export const chosen = { '/ALLUSERS': 1201, '/CURRENTUSER': 1202 };

/** Buttons of dialogs. */
export const ok = 1, cancel = 2, yes = 6, no = 7;

// What the wizard can show: messages, which stand in front, and pages. And what is answered unless a
// test says otherwise: the identifiers of what is pressed, one after the other.
const messages = {
    quit: { words: /Are you sure you want to quit/, press: [yes] },
    newer: { words: /which is newer than this one\. Replace it/, press: [yes] },
    running: { words: /is running/, press: [ok] },
    runtime: { words: /needs the/, press: [no] },
    data: { words: /Delete your settings/, press: [no] },
    failed: { words: /could not be written|cannot be replaced|error writing/i, press: [ok] },
};
const pages = {
    welcome: { words: /Welcome to/, press: [ok] },
    scope: { words: /Install for anyone/, press: [ok] },
    folder: { words: /Destination Folder/, press: [ok] },
    finish: { words: /Start Ravelin/, press: [1203, ok] },
    aborted: { words: /Installation Aborted|Setup was not completed/, press: [cancel] },
    confirm: { words: /will be uninstalled from/, press: [ok] },
    removed: { words: /Uninstall was completed successfully/, press: [ok] },
};

/**
 * Starts the program and answers each page and message, as `answers` says by its name or else by what
 * leads to the end; an answer can also be something to do. Gives the exit code and the names and texts
 * of what was shown.
 */
export async function throughWizard(program, title, answers = {}, { args = [], pictures } = {}) {
    const run = start(program, args);
    const known = { ...messages, ...pages };
    const shown = [];
    let seen; // at the last look, to answer only what stands still
    for (;;) {
        const last = shown.at(-1);
        const look = await until(async () => {
            if (run.ended) return 'ended';
            const text = await windowTool('text', title);
            const name = text && Object.keys(known).find((one) => known[one].words.test(text));
            const still = text === seen;
            seen = text;
            if (!name || !still) return null;
            // A page says the room on the disk, which changes while it stands; two messages of a kind
            // differ in what they say.
            if (name === last?.name && (name in pages || text === last.text)) return null;
            return { name, text };
        }, `the wizard to end or to show more than ${last?.text}`, 60_000);
        if (look === 'ended') break;
        shown.push(look);
        if (pictures) await screenshot(`${pictures}-${look.name}`);
        for (const answer of answers[look.name] ?? known[look.name].press) {
            if (typeof answer === 'function') await answer();
            else await windowTool('press', title, answer);
        }
    }
    return { code: await within(60_000, run.exited, 'the wizard to end'), shown, names: shown.map(({ name }) => name) };
}

export const setupWizard = (setup, answers, options) => throughWizard(windowsPath(setup.file), setup.title, answers, options);
