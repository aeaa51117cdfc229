// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { createHash, randomBytes } from 'node:crypto';
import { cpSync, existsSync, lstatSync, readdirSync, readFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import test from 'node:test';

import { engineFolder, modelsFolder, programFolder } from '../src/settings/folders.mjs';
import { fetchPackages } from '../src/setup/packages.mjs';
import { Progress } from '../src/setup/progress.mjs';
import { program, run, runProgram, temporaryHome, write } from './support/home.mjs';
import { registryOf } from './support/registry.mjs';

/** A home without anything installed, and an npm that does what a line of shell says. */
function homeWithNpm(context, script) {
    const home = temporaryHome(context, { XDG_DATA_HOME: '' });
    write(home.path('bin', 'npm'), `#!/bin/sh\n${script}\n`, 0o755);
    home.environment.PATH = `${home.path('bin')}:${home.environment.PATH}`;
    return { ...home, data: (...names) => home.path('.local', 'share', 'wrenfold', ...names) };
}

const listed = (folder) => (existsSync(folder) ? readdirSync(folder) : []);

/** As npm tells its settings, with a registry that nobody is. */
const unreachable = `echo '{"registry":"http://127.0.0.1:1/"}'`;

test('An engine that does not arrive whole is not installed', (context) => {
    for (const [script, reason] of [
        ['mkdir -p node_modules/half; echo EINTEGRITY >&2; exit 1', /EINTEGRITY/],
        ['mkdir -p node_modules/sherpa-onnx-node', /is not what was pinned/],
    ]) {
        const home = homeWithNpm(context, script);
        const own = home.path('program');
        for (const part of ['wrenfold-local.mjs', 'package.json', '.npmrc', 'src', 'prompts'])
            cpSync(join(dirname(program), part), join(own, part), {
                recursive: true,
                dereference: true,
            });
        // A package that need not be fetched, since it is for no machine.
        const engine = `node_modules/sherpa-onnx-${process.platform}-${process.arch}`;
        write(join(own, 'package-lock.json'), `{"packages": {"${engine}": {"os": ["none"]}}}`);
        const killed = spawnSync('true').pid;
        write(home.data('local-services', `.engine-${killed}-abcdef`, 'fresh', 'half'), '');
        const { status, stderr } = runProgram(join(own, 'wrenfold-local.mjs'), home, 'install');
        assert.equal(status, 1);
        assert.match(stderr, reason);
        assert.deepEqual(listed(home.data('local-services')), ['downloads']);
    }
});

test('Without a network nothing is installed, and that is what is said', (context) => {
    for (const hasEngine of [false, true]) {
        const home = homeWithNpm(context, unreachable);
        const engine = home.data('local-services', 'engine');
        if (hasEngine) cpSync(engineFolder(), engine, { recursive: true });
        const { status, stderr } = run(home, 'install');
        assert.equal(status, 1);
        assert.match(stderr, /cannot be reached \(curl: \(7\).*Is there a network\?/);
        assert.equal(existsSync(engine), hasEngine);
        assert.deepEqual(listed(home.data('models')), []);
    }
});

test('What is fetched is what was pinned, and goes on where it stopped', async (context) => {
    const archive = randomBytes(300_000);
    const integrity = `sha512-${createHash('sha512').update(archive).digest('base64')}`;
    const half = { breaksAt: 200_000 };
    // What the registry does at each request, what each call fails with, and what was asked for.
    const rows = [
        [[{}], [''], ['all']],
        [
            [half, {}],
            [/What has arrived is kept/, ''],
            ['all', 'bytes=200000-'],
        ],
        [
            [half, { ignoresRange: true }, {}],
            [/is kept/, ''],
            ['all', 'bytes=200000-', 'all'],
        ],
        [[{ status: 404 }], [/cannot be had: .*404/], ['all']],
        [[{}, {}], [/its hash differs/, /its hash differs/], ['all', 'all'], 'sha512-other'],
    ];
    const { npm_config_registry: before } = process.env;
    context.after(() => (process.env.npm_config_registry = before ?? ''));
    for (const [answers, failures, ranges, pinned = integrity] of rows) {
        const folder = temporaryHome(context).path('downloads');
        const registry = await registryOf(context, archive, (request) => answers[request - 1]);
        process.env.npm_config_registry = registry.address;
        const pin = { name: '@some/package', version: '1.2.3', integrity: pinned };
        for (const failure of failures) {
            const fetched = fetchPackages([pin], folder);
            if (failure) await assert.rejects(fetched, failure);
            else assert.deepEqual(readFileSync((await fetched)[0]), archive);
        }
        if (!failures.at(-1)) await fetchPackages([pin], folder);
        assert.deepEqual(registry.ranges, ranges);
    }
});

test('Progress is one line on a terminal, else a line for every tenth', () => {
    for (const [isTTY, expected] of [
        [true, ['\rIt: 0.2 MB of 8.0 MB, 3 %\x1b[K', '\rIt: 0.4 MB of 8.0 MB, 5 %\x1b[K', '\n']],
        [false, ['It: 0.2 MB of 8.0 MB, 3 %\n', 'It: 0.8 MB of 8.0 MB, 10 %\n']],
    ]) {
        const written = [];
        const progress = new Progress('It', { isTTY, write: (text) => written.push(text) });
        progress.update(100, 0); // its size is not known yet
        for (const bytes of [240_000, 240_001, 400_000]) progress.update(bytes, 8_000_000);
        if (!isTTY) progress.update(800_000, 8_000_000);
        progress.end();
        assert.deepEqual(written, expected);
    }
});

test('What is installed is complete, has its licences and is not fetched again', (context) => {
    const model = `${modelsFolder()}/moonshine-tiny-en`;
    assert.match(readFileSync(`${model}/LICENSE`, 'utf8'), /MIT License/);
    assert.match(readFileSync(`${model}/LICENSE.tokens`, 'utf8'), /MIT LICENSE/);
    assert.match(
        readFileSync(`${engineFolder()}/licences/Apache-2.0.txt`, 'utf8'),
        /Apache License/,
    );
    const tokens = readFileSync(`${model}/tokens.txt`, 'utf8').split('\n');
    assert.deepEqual([tokens[3], tokens[31999], tokens.length], ['AA==\t3', '57uZ\t31999', 32001]);
    assert.ok(lstatSync(`${programFolder()}/prompts`).isDirectory(), 'no link to the source tree');
    const home = homeWithNpm(context, 'exit 1');
    home.environment.XDG_DATA_HOME = process.env.XDG_DATA_HOME;
    assert.deepEqual(run(home, 'install'), { status: 0, stdout: '', stderr: '' });
});

test('The lockfiles pin every package and name no place to get it from', () => {
    for (const path of ['../package-lock.json', '../../../package-lock.json']) {
        const lock = JSON.parse(readFileSync(new URL(path, import.meta.url), 'utf8'));
        const [own, ...packages] = Object.values(lock.packages);
        const wanted = Object.values({ ...own.dependencies, ...own.devDependencies });
        assert.ok(wanted.every((version) => /^\d+\.\d+\.\d+$/.test(version)));
        assert.ok(packages.every(({ integrity }) => /^sha512-.{86}==$/.test(integrity)));
        assert.doesNotMatch(JSON.stringify(lock), /resolved/);
    }
});
