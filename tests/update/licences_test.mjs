// THIRD-PARTY.txt against what the shipped files are really made of: what the linker took, which
// headers were compiled, which packages were bundled and what setup was packed from.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { existsSync, readFileSync, realpathSync } from 'node:fs';
import path from 'node:path';
import test from 'node:test';
import { componentOf, components, packageOf, section } from '../../packaging/third_party.mjs';
import { build, programFolder, root, scratch, toolFolder } from '../e2e/lib/wine.mjs';
import { productOf } from './lib/product.mjs';
import { shipped } from './lib/setup.mjs';

const read = (...names) => readFileSync(path.join(...names), 'utf8');

/** The names of the components that the files come from; a file from anywhere else is a failure. */
function componentsOf(files) {
    const foreign = files.map((file) => path.resolve(toolFolder, file)).filter((file) => !realpathSync(file).startsWith(root));
    assert.deepEqual(foreign.filter((file) => !componentOf(file)), [], 'of nobody known');
    return new Set(foreign.map((file) => componentOf(file).name));
}

/** The archives and objects that something was taken from, out of a linker's map. */
function linked(map) {
    const text = read(toolFolder, map);
    const members = [...text.matchAll(/^(\S+\.a)\(.*\)$/gm)].map(([, archive]) => archive);
    const objects = [...text.matchAll(/^LOAD (\S+\.(?:o|obj|res))$/gm)].map(([, object]) => object);
    assert.ok(members.length > 10 && objects.length > 2, map);
    return [...new Set([...members, ...objects])];
}

/** Everything that was read to compile the program and the setup program's plug-in. */
function compiled() {
    const text = execFileSync('ninja', ['-C', toolFolder, '-t', 'deps'], { encoding: 'utf8', maxBuffer: 1 << 30 });
    const files = new Set();
    for (const block of text.split('\n\n')) {
        const [object, ...inputs] = block.split('\n');
        if (/CMakeFiles\/(Ravelin|ravelin_core|ravelin_windows|ravelin_setup|ravelin_setup_parts)\.dir\//.test(object)) {
            inputs.forEach((input) => files.add(input.trim()));
        }
    }
    assert.ok(files.size > 500);
    return [...files].filter((file) => file !== '');
}

/** The names of the files that are packed into the setup program. */
function packed() {
    const output = execFileSync(path.join(root, 'packaging/setup/make_setup.sh'), [
        path.join(toolFolder, 'generated/product.nsh'), path.join(toolFolder, 'setup-plugin'), programFolder,
        path.join(scratch, 'licences-setup.exe'), '-DQUICKLY', '-V4',
    ], { encoding: 'utf8', maxBuffer: 1 << 26 });
    return [...new Set([...output.matchAll(/^ *File: "(.*?)"/gm)].map(([, name]) => name.replaceAll('\\', '/')))];
}

const nsis = '/usr/share/nsis/Plugins/amd64-unicode';

test('every component that is shipped has its licence in THIRD-PARTY.txt, and no other', () => {
    const found = componentsOf([...linked('Ravelin.map'), ...linked('RavelinSetup.map'), ...compiled()]);

    const own = new Set([...shipped.map((file) => path.basename(file)), 'RavelinSetup.dll']);
    const others = packed().map((name) => path.basename(name)).filter((name) => !own.has(name) && !name.endsWith('.bmp'));
    assert.ok(others.length > 0);
    for (const name of others) assert.ok(existsSync(path.join(nsis, name)), `${name} is packed and nobody's`);
    found.add(componentOf(path.join(nsis, others[0])).name);

    const bundled = JSON.parse(read(build, 'page/packages.json'));
    const brought = Object.keys(JSON.parse(read(root, 'packaging/package.json')).dependencies);
    for (const name of [...bundled, ...brought]) {
        const component = components.find(({ packages = [] }) => packages.includes(name));
        assert.ok(component, `${name} is bundled and nobody's`);
        found.add(component.name);
    }
    // In the view library, which nothing tells about: see below.
    found.add('Microsoft Edge WebView2 SDK');

    assert.deepEqual([...found].sort(), components.map(({ name }) => name).sort());
});

test('the view library holds the declarations whose licence is listed for it', () => {
    assert.ok(readFileSync(path.join(programFolder, 'libwebview.dll')).includes('ICoreWebView2Controller'));
});

const written = read(root, 'THIRD-PARTY.txt');

for (const component of components) {
    // A system with other versions has other texts, and makes no release (./dev package).
    const skip = component.system && !written.includes(`${packageOf(component)}.\n`) && `${packageOf(component)} is another version`;

    test(`THIRD-PARTY.txt says of ${component.name} what its package says: node packaging/third_party.mjs writes it`, { skip }, () => {
        assert.ok(written.includes(section(component)));
        assert.ok(component.texts().every((text) => text.trim().length > 500));
    });
}

test('THIRD-PARTY.txt has no part but theirs', () => {
    const parts = [...written.matchAll(/^={80}\n(.*)\n={80}$/gm)].map(([, name]) => name);
    assert.deepEqual(parts, components.map(({ name }) => name));
    for (const { name, where } of components) assert.ok(written.includes(`  ${name}\n      in ${where}\n`), name);
});

test('LICENSE is the MIT License of the one who publishes the program', () => {
    const { publisher, copyright } = productOf();
    const licence = read(root, 'LICENSE');
    assert.match(licence, /^MIT License\n\nCopyright \(c\) \d{4} (.*)\n\nPermission is hereby granted, free of charge,/);
    assert.equal(licence.match(/^Copyright \(c\) (\d{4}) (.*)$/m)[2], publisher);
    assert.equal(copyright, `${licence.match(/^Copyright .*$/m)[0]}. MIT License.`);
    assert.equal(read(programFolder, 'LICENSE.txt'), licence);
    assert.equal(read(programFolder, 'THIRD-PARTY.txt'), read(root, 'THIRD-PARTY.txt'));
    assert.match(read(root, 'README.md'), /MIT License/);
});
