// node third_party.mjs [--check]
//
// Writes THIRD-PARTY.txt: what of other authors is in the shipped files, with the full texts of their
// licences as the installed packages have them. With --check it only says whether that is what the
// file holds already.
import { execFileSync } from 'node:child_process';
import { readFileSync, realpathSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import { fileURLToPath } from 'node:url';

const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '..');
const npm = (folder, ...names) => path.join(root, folder, 'node_modules', ...names);
const debian = (name) => `/usr/share/doc/${name}/copyright`;
const compiler = path.dirname(realpathSync(execFileSync('x86_64-w64-mingw32-g++-posix', ['-print-file-name=libstdc++.a'], { encoding: 'utf8' }).trim()));

/** The file's text, or what lies between two of its lines, the first one included. */
function text(file, from, to) {
    const whole = readFileSync(file, 'utf8').replaceAll('\r\n', '\n');
    if (from === undefined) return whole;
    const begin = whole.indexOf(from);
    const end = whole.indexOf(to, begin);
    if (begin < 0 || end < 0) throw new Error(`${file} does not go from "${from}" to "${to}"`);
    return whole.slice(begin, end);
}

/**
 * What is linked or bundled. `packages` are the npm packages it comes in, `system` the one of the system,
 * and `files` the folders that a linker, a compiler or the maker of the setup program takes it from.
 */
export const components = [
    {
        name: 'webview', where: 'libwebview.dll, as the npm package webview-bun brings it',
        packages: ['webview-bun'],
        texts: () => [text(npm('packaging', 'webview-bun/LICENSE'))],
    },
    {
        // The library is compiled with its declarations, which no installed package carries.
        name: 'Microsoft Edge WebView2 SDK', where: 'libwebview.dll', packages: [],
        texts: () => [text(path.join(root, 'packaging/licences/webview2-sdk.txt'))],
    },
    {
        name: 'Svelte', where: 'ui/index.html', packages: ['svelte'],
        texts: () => [text(npm('ui', 'svelte/LICENSE.md'))],
    },
    {
        name: 'clsx', where: 'ui/index.html', packages: ['clsx'],
        texts: () => [text(npm('ui', 'clsx/license'))],
    },
    {
        name: 'esm-env', where: 'ui/index.html', packages: ['esm-env'],
        texts: () => [text(npm('ui', 'esm-env/LICENSE'))],
    },
    {
        name: 'Sortable', where: 'ui/vendor/Sortable.min.js', packages: ['sortablejs'],
        texts: () => [text(npm('ui', 'sortablejs/LICENSE'))],
    },
    {
        name: 'JSON for Modern C++', where: 'Ravelin.exe', system: 'nlohmann-json3-dev', files: ['/usr/include/nlohmann/'],
        texts: () => [text(debian('nlohmann-json3-dev'))],
    },
    {
        name: 'RapidJSON', where: 'Ravelin.exe', system: 'rapidjson-dev', files: ['/usr/include/rapidjson/'],
        texts: () => [text(debian('rapidjson-dev'))],
    },
    {
        name: 'GCC runtime libraries: libstdc++ and libgcc', where: 'Ravelin.exe and the setup program',
        system: 'gcc-mingw-w64-base', files: [`${compiler}/`],
        texts: () => [
            text(debian('gcc-mingw-w64-base'), 'GCC is Copyright', 'The libbacktrace library'),
            text(debian('gcc-mingw-w64-base'), 'GCC RUNTIME LIBRARY EXCEPTION', 'libquadmath/*.[hc]:'),
            text('/usr/share/common-licenses/GPL-3'),
            text(`${compiler}/include/c++/bits/stl_algo.h`, ' * Copyright (c) 1994', ' */').replaceAll(/^ \* ?/gm, ''),
        ],
    },
    {
        name: 'mingw-w64 runtime and winpthreads', where: 'Ravelin.exe and the setup program',
        system: 'mingw-w64-common', files: ['/usr/x86_64-w64-mingw32/', '/usr/share/mingw-w64/'],
        texts: () => [text(debian('mingw-w64-common'))],
    },
    {
        name: 'NSIS', where: 'the setup program and Uninstall.exe', system: 'nsis-common', files: ['/usr/share/nsis/'],
        texts: () => [text(debian('nsis-common'))],
    },
];

/** The component that a file is part of, or undefined. */
export function componentOf(file) {
    const real = realpathSync(file);
    return components.find(({ files = [] }) => files.some((folder) => real.startsWith(folder)));
}

/** What the system's package of the component is, and in which version. */
export function packageOf({ system }) {
    return `${system} ${execFileSync('dpkg-query', ['-W', '-f', '${Version}', system], { encoding: 'utf8' })}`;
}

const heavy = '='.repeat(80);
const light = '-'.repeat(80);

/** The component's part of the file. */
export function section(component) {
    const { name, system, texts } = component;
    const source = system ? `\nTexts of the Debian package ${packageOf(component)}.\n` : '';
    return `${heavy}\n${name}\n${heavy}\n${source}\n${texts().map((one) => one.trim()).join(`\n\n${light}\n\n`)}\n`;
}

export function thirdPartyText() {
    const list = components.map(({ name, where }) => `  ${name}\n      in ${where}`);
    const sections = components.map(section);
    return `Ravelin contains work of other authors under licences of their own:

${list.join('\n')}

Their licences follow as their authors and the packages that they came in give them. Some of these
texts also speak of parts that are not in Ravelin.

${sections.join('\n')}`;
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
    const file = path.join(root, 'THIRD-PARTY.txt');
    if (process.argv[2] !== '--check') {
        writeFileSync(file, thirdPartyText());
    } else if (readFileSync(file, 'utf8') !== thirdPartyText()) {
        console.error('THIRD-PARTY.txt is not what the installed packages say; node packaging/third_party.mjs writes it.');
        process.exit(1);
    }
}
