// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { cpSync, existsSync, lstatSync, readdirSync, readFileSync } from 'node:fs';
import test from 'node:test';

import { engineFolder, modelsFolder, programFolder } from '../src/settings/folders.mjs';
import { run, temporaryHome, write } from './support/home.mjs';

/** A home without anything installed, and an npm that does what a line of shell says. */
function homeWithNpm(context, script) {
    const home = temporaryHome(context, { XDG_DATA_HOME: '' });
    write(home.path('bin', 'npm'), `#!/bin/sh\n${script}\n`, 0o755);
    home.environment.PATH = `${home.path('bin')}:${home.environment.PATH}`;
    return { ...home, data: (...names) => home.path('.local', 'share', 'wrenfold', ...names) };
}

const listed = (folder) => (existsSync(folder) ? readdirSync(folder) : []);

test('An engine that does not arrive whole is not installed', (context) => {
    for (const [script, reason] of [
        ['mkdir -p node_modules/half; echo EINTEGRITY >&2; exit 1', /EINTEGRITY/],
        ['mkdir -p node_modules/sherpa-onnx-node', /is not what was pinned/],
    ]) {
        const home = homeWithNpm(context, script);
        const killed = spawnSync('true').pid;
        write(home.data('local-services', `.engine-${killed}-abcdef`, 'fresh', 'half'), '');
        const { status, stderr } = run(home, 'install');
        assert.equal(status, 1);
        assert.match(stderr, reason);
        assert.deepEqual(listed(home.data('local-services')), []);
    }
});

test('A model that is not what was pinned is not installed', (context) => {
    // What npm hands out is another package of the right name.
    const archive = 'tar -czf "$4/moonshine-ai-moonshine-js-0.1.29.tgz" -C /etc hostname';
    for (const [script, reason] of [
        [archive, /its hash differs/],
        ['echo npm ERR! code ENOTFOUND >&2; exit 1', /cannot be reached \(ENOTFOUND\)/],
    ]) {
        const home = homeWithNpm(context, script);
        cpSync(engineFolder(), home.data('local-services', 'engine'), { recursive: true });
        const { status, stderr } = run(home, 'install');
        assert.equal(status, 1);
        assert.match(stderr, reason);
        assert.deepEqual(listed(home.data('models')), []);
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
