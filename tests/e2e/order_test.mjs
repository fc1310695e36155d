// The order in which the real program starts and ends, told by the calls that it makes.
import assert from 'node:assert/strict';
import { cpSync, mkdirSync, rmSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import test, { afterEach, before } from 'node:test';
import { callsIn, fromTheProgram, inOrder, recording, threadsIn, whileRecording } from './lib/calls.mjs';
import { Ravelin } from './lib/ravelin.mjs';
import { clearDataFolder, dataFolder, programFolder, runToEnd, scratch, until, windowsPath } from './lib/wine.mjs';

const functions = [
    'kernel32.SetDefaultDllDirectories', 'kernel32.SetEnvironmentVariableW', 'combase.CoInitializeEx', 'ole32.CoInitializeEx',
    'user32.SetProcessDPIAware', 'shcore.CommandLineToArgvW', 'shell32.CommandLineToArgvW', 'kernel32.CreateMutexW',
    'kernel32.MoveFileExA', 'kernel32.MoveFileExW', 'kernel32.DeleteFileA', 'kernel32.DeleteFileW', 'kernel32.FindFirstFileW',
    'kernel32.SetUnhandledExceptionFilter', 'msvcrt.fopen', 'msvcrt._wfopen', 'kernel32.CreateFileA', 'kernel32.CreateFileW',
    'winmm.timeBeginPeriod', 'winmm.timeEndPeriod', 'kernel32.QueryPerformanceFrequency', 'advapi32.RegOpenKeyExW',
    'kernel32.SetProcessInformation', 'kernel32.CreateEventW', 'kernel32.CreateThread', 'kernel32.LoadLibraryExW',
    'user32.LoadImageW', 'user32.SetForegroundWindow', 'user32.SendInput', 'user32.MapVirtualKeyW', 'user32.SetWindowsHookExW',
    'kernel32.CreateNamedPipeW', 'winhttp.WinHttpOpen', 'user32.PostThreadMessageW', 'kernel32.SetEvent',
    'kernel32.WaitForSingleObject', 'kernel32.CloseHandle', 'kernel32.TerminateProcess', 'user32.DestroyWindow',
    'combase.CoUninitialize', 'ole32.CoUninitialize', 'kernel32.ExitProcess',
];

const removed = [
    'BROWSER_EXECUTABLE_FOLDER', 'ADDITIONAL_BROWSER_ARGUMENTS', 'USER_DATA_FOLDER', 'RELEASE_CHANNEL_PREFERENCE',
    'PIPE_FOR_SCRIPT_DEBUGGER', 'WAIT_FOR_SCRIPT_DEBUGGER',
].map((name) => new RegExp(`^SetEnvironmentVariableW\\(\\w+ L"WEBVIEW2_${name}",0+\\)`));

/** What every run does first. */
const common = [/^SetDefaultDllDirectories\(00001000\)/, ...removed, /^CoInitializeEx\(0+,00000006\)/, /^SetProcessDPIAware/, /^CommandLineToArgvW/];

const folder = path.join(scratch, 'order');
const program = windowsPath(path.join(folder, 'Ravelin.exe'));
let ravelin;

before(() => {
    rmSync(folder, { recursive: true, force: true });
    cpSync(programFolder, folder, { recursive: true });
});

afterEach(async () => {
    if (ravelin) await ravelin.kill();
    ravelin = undefined;
});

/** The calls of the program's main thread by itself. */
function mainCalls(output) {
    const calls = callsIn(output);
    const first = calls.find(({ name }) => name === 'SetDefaultDllDirectories');
    return fromTheProgram(calls.filter(({ thread }) => thread === first.thread), first.from);
}

const count = (calls, name) => calls.filter((call) => call.name === name).length;

test('a console run prepares itself as every run does, before it opens the file', async () => {
    await whileRecording(functions, async () => {
        const { output } = await runToEnd(program, ['--validate-macro=C:\\none'], { env: recording, cwd: folder });
        const calls = mainCalls(output);
        inOrder(calls, [...common, /"C:\\\\none"/]);
        assert.equal(count(calls, 'CreateMutexW'), 0);
        assert.equal(count(calls, 'SetEnvironmentVariableW'), removed.length);
    });
});

test('start and end follow their order', async () => {
    clearDataFolder();
    for (const name of ['session.mcr', 'theme.txt', 'appsettings.txt', 'status.txt', 'macroevents.txt'])
        writeFileSync(path.join(folder, name), '');
    mkdirSync(dataFolder(), { recursive: true });
    let output;
    await whileRecording(functions, async () => {
        ravelin = await Ravelin.open({ program, keepData: true, env: recording });
        const page = await ravelin.page();
        // A round of each tool tells its thread, and a panel is there to be ended.
        await page.evaluate(() => window.updateSpammer('0,0,1,0,0,0,0,1,0'));
        await page.evaluate(() => window.startSpammer());
        await page.evaluate(() => window.updateKeySpam('0,0,1,0,0,1'));
        await page.evaluate(() => window.startKeySpam());
        await page.evaluate(() => window.detachPanel('Auto clicker', 'panel-spammer', 900, 200, 'ravelin'));
        await ravelin.panelPage('Ravelin - Auto clicker');
        // The engine of the view asks the network as well, and a panel reads the session.
        const asked = (fits) => {
            const calls = callsIn(ravelin.run.output);
            return fromTheProgram(calls, calls.find(({ name }) => name === 'SetDefaultDllDirectories').from).some((call) => call.thread !== calls[0].thread && fits(call));
        };
        await until(() => asked(({ name }) => name === 'WinHttpOpen'), 'the check for an update');
        await until(() => asked(({ text }) => /session\.dat".*"wb"/.test(text)), 'the background save');
        assert.equal(await ravelin.close(), 0);
        output = ravelin.run.output;
        ravelin = undefined;
    });

    const main = mainCalls(output);
    const events = [/^CreateEventW\(0+,00000001,0+,0+\)/, ...Array(4).fill(/^CreateEventW\(0+,00000000,0+,0+\)/)];
    const started = inOrder(main, [
        ...common,
        /^CreateMutexW\(0+,00000001,\w+ L"Local\\\\RavelinUI_SingleInstance"\)/,
        /^MoveFileEx.*session\.mcr".*session\.dat"/,
        /^MoveFileEx.*order\\\\theme\.txt".*Local\\\\Ravelin\\\\theme\.txt"/,
        /^MoveFileEx.*order\\\\appsettings\.txt".*Local\\\\Ravelin\\\\appsettings\.txt"/,
        /^DeleteFile.*order\\\\status\.txt"/,
        /^DeleteFile.*order\\\\macroevents\.txt"/,
        /^FindFirstFileW.*Ravelin-update-\*"/,
        /^SetUnhandledExceptionFilter/,
        /^(fopen|_wfopen|CreateFile).*session\.dat"/,
        /^timeBeginPeriod\(00000001\)/,
        /^QueryPerformanceFrequency/,
        /^(fopen|_wfopen|CreateFile).*appsettings\.txt"/,
        /^RegOpenKeyExW.*CurrentVersion\\\\Run"/,
        /^(fopen|_wfopen|CreateFile).*theme\.txt"/,
        /^timeBeginPeriod\(00000001\)/,
        /^SetProcessInformation\(f+,00000004,/,
        /^SetEnvironmentVariableW\(\w+ L"WEBVIEW2_DEFAULT_BACKGROUND_COLOR",\w+ L"FF0f1319"/,
        ...events,
        /^LoadLibraryExW.*"libwebview\.dll"/,
        /^LoadImageW\(\w+,0000006b,/,
        /^LoadImageW\(\w+,0000006c,/,
        /^(fopen|_wfopen|CreateFile).*ui\\\\index\.html"/,
        /^SetForegroundWindow/,
    ]);
    // Beside those that are removed, the colour that is seen before the page.
    assert.equal(count(main, 'SetEnvironmentVariableW'), removed.length + 1);
    assert.equal(count(main, 'timeBeginPeriod'), 2);

    // The eight threads, by what only one of them does, in the order in which they were begun.
    const mainThread = main[0].thread;
    const [createdEvent, loadedLibrary] = [/^CreateEventW/, /^LoadLibraryExW.*"libwebview/].map((pattern) => started.findLast(({ text }) => pattern.test(text)));
    const created = callsIn(output).filter(({ thread, name, line }) =>
        thread === mainThread && name === 'CreateThread' && line > createdEvent.line && line < loadedLibrary.line);
    assert.equal(created.length, 8);
    const begun = created.map(({ line, text, result }) => {
        const argument = BigInt('0x' + text.split(',')[3].replace(/.*(.{8})$/, '$1'));
        const { thread } = threadsIn(output).find((one) => one.line > line && (one.argument & 0xffffffffn) === argument);
        return { thread, handle: result };
    });
    const all = fromTheProgram(callsIn(output), main[0].from);
    const workOf = (thread) => {
        const does = (name) => all.some((call) => call.thread === thread && call.name === name);
        if (does('SetWindowsHookExW')) return 'input';
        if (does('CreateNamedPipeW')) return 'pipe server';
        if (does('WinHttpOpen')) return 'update check';
        if (all.some((call) => call.thread === thread && /session\.dat"/.test(call.text))) return 'autosave';
        if (does('SendInput')) return does('MapVirtualKeyW') ? 'key spammer' : 'auto clicker';
        return 'command or player';
    };
    const works = begun.map(({ thread }) => workOf(thread));
    assert.deepEqual(works, ['auto clicker', 'key spammer', 'input', 'command or player', 'autosave', 'command or player', 'pipe server', 'update check']);
    // Of the last two the command thread is the one that woke the tools.
    const wakes = started.filter(({ text }) => /^CreateEventW/.test(text)).slice(2, 4).map(({ result }) => result);
    const woke = (i) => all.some(({ thread, text }) => thread === begun[i].thread && wakes.some((event) => text === `SetEvent(${event})`));
    assert.deepEqual([woke(3), woke(5)], [false, true]);

    const [quit, ...others] = started.filter(({ text }) => /^CreateEventW/.test(text)).map(({ result }) => result);
    const joins = [0, 1, 2, 3, 5, 6, 4, 7].map((i) => new RegExp(`^WaitForSingleObject\\(${begun[i].handle},ffffffff\\)`));
    const ending = main.filter(({ line }) => line > started.at(-1).line);
    const ended = inOrder(ending, [
        /session\.dat"/, // while a panel is detached
        /session\.dat"/,
        new RegExp(`^PostThreadMessageW\\(0*${begun[2].thread},00000012,`),
        new RegExp(`^SetEvent\\(${quit}\\)`),
        ...joins,
        ...[quit, ...others].map((event) => new RegExp(`^CloseHandle\\(${event}\\)`)),
        /^TerminateProcess\(\w+,00000000\)/,
        /^timeEndPeriod\(00000001\)/,
        /^CoUninitialize/,
    ]);
    assert.equal(count(main, 'timeEndPeriod'), 1);
    assert.equal(count(main, 'CoUninitialize'), 1);
    assert.equal(count(main, 'TerminateProcess'), 1);
    // The library takes the view down in between, and the process ends with 0.
    const [released, left] = ended.slice(-2);
    const afterwards = callsIn(output).filter(({ thread, line }) => thread === mainThread && line > released.line);
    inOrder(afterwards, [/^DestroyWindow/, /^CoUninitialize/, /^ExitProcess\(00000000\)/]);
    assert.ok(afterwards.find(({ name }) => name === 'DestroyWindow').line < left.line);
});
