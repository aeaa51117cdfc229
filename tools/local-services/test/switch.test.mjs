// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { readFileSync, rmSync, statSync } from 'node:fs';
import test from 'node:test';

import { contents, run, temporaryHome, write } from './support/home.mjs';

const configuration = String.raw`{ "later": {"endpoint": [1, "{"]},
  "paste" : {"restoreClipboardAfterMilliseconds": 9007199254740993, "x": 1.0},
  "deepSeek": {"apiKey": "own-\"polish\"-key", "baseURL":"https://polish.example", "model": "m"},
  "volcengine": {"accessKey": "a", "apiKey": "own-voice-key", "appKey": "b", "enableDDC": false,
    "endpoint": "https://voice.example/path", "apiKeys": ["apiKey"]}, "prompts":null }
`;

function homeWith(context, text) {
    const home = temporaryHome(context);
    const file = home.path('.wrenfold', 'config.json');
    write(file, text);
    return { ...home, read: () => readFileSync(file, 'utf8'), file };
}

/** Takes a lock, as the application does while it runs. */
async function hold(context, lock) {
    const holder = spawn('flock', [lock, 'sh', '-c', 'echo held; exec cat']);
    context.after(() => holder.stdin.end());
    await once(holder.stdout, 'data');
}

test('Enabling changes four values and nothing else, disabling puts them back', (context) => {
    const home = homeWith(context, configuration);
    for (const language of ['zh', 'auto']) {
        assert.equal(run(home, 'enable', '--language', language).status, 0);
        const { deepSeek, volcengine } = JSON.parse(home.read());
        const origin = deepSeek.baseURL;
        assert.equal(
            origin,
            `http+unix://${encodeURIComponent(home.path('wrenfold-local', 'socket'))}`,
        );
        const query = language === 'zh' ? '?language=zh' : '';
        assert.equal(volcengine.endpoint, `${origin}/api/v3/auc/bigmodel/recognize/flash${query}`);
        assert.match(deepSeek.apiKey, /^local-[\w-]{32}$/);
        assert.equal(volcengine.apiKey, deepSeek.apiKey);
        assert.match(run(home, 'status').stdout, /Used by Wrenfold: yes/);
        // The companion's own settings have nothing of the user's.
        const settings = home.path('.config', 'wrenfold', 'local-services.json');
        assert.doesNotMatch(readFileSync(settings, 'utf8'), /own-|example/);
        for (const file of [settings, home.file]) assert.equal(statSync(file).mode & 0o777, 0o600);
        const others = home.read().replaceAll(/"(local-|http\+)[^"]*"/g, '"?"');
        assert.equal(others, configuration.replaceAll(/"(own-|https:)(\\.|[^"])*"/g, '"?"'));
    }
    assert.equal(run(home, 'disable').status, 0);
    assert.equal(home.read(), configuration);
    assert.match(run(home, 'status').stdout, /Used by Wrenfold: no/);
});

test('Enabling again moves earlier services from their port to a socket', (context) => {
    const home = homeWith(context, configuration);
    run(home, 'enable');
    const enabled = home.read();
    const settings = home.path('.config', 'wrenfold', 'local-services.json');
    const { key } = JSON.parse(readFileSync(settings));
    write(settings, JSON.stringify({ port: 47613, key, language: 'auto' }));
    write(home.file, enabled.replaceAll(/http\+unix:[^"/]*\/\/[^"/]*/g, 'http://127.0.0.1:47613'));
    assert.match(run(home, 'status').stdout, /Wrenfold: yes\nRunning: whoever has their port/);
    assert.match(run(home, 'serve').stderr, /enable the local services first/);
    assert.equal(run(home, 'enable').status, 0);
    assert.equal(home.read(), enabled);
    assert.equal(run(home, 'disable').status, 0);
    assert.equal(home.read(), configuration);
});

test('What was changed by hand meanwhile stays', (context) => {
    const home = homeWith(context, configuration);
    run(home, 'enable');
    write(home.file, home.read().replace(/"apiKey": "local-[^"]*"/, '"apiKey": "newer"'));
    const { status, stdout } = run(home, 'disable');
    assert.equal(status, 0);
    assert.match(stdout, /changed meanwhile: deepSeek.apiKey/);
    assert.equal(home.read(), configuration.replace('own-\\"polish\\"-key', 'newer'));
});

test('A refused command changes nothing at all', async (context) => {
    const kept = ['.config', 'wrenfold', 'before-local-services.json'];
    const refusals = [
        [/"auto" or a code/, {}, '--language', 'Chinese'],
        [/JSON/, { text: '' }],
        [/not a JSON object/, { text: '[]' }],
        [/no "deepSeek.apiKey"|no "volcengine/, { text: '{"volcengine": {}}' }],
        [/JSON/, { text: configuration.replace('"model": "m"}', '') }],
        [/start it once first/, { place: ['.hush-wire', 'config.json'] }],
        [/is damaged/, { files: [[kept, '{']] }],
        [/apiKey was changed/, { files: [[kept, '{"deepSeek.apiKey": "earlier"}']] }],
        [/Wrenfold is running/, { isRunning: true }],
        // Nothing of the above gets as far as this.
        [/npm config failed/, { files: [[['bin', 'npm'], '#!/bin/sh\nexit 1\n', 0o755]] }],
    ];
    for (const [
        reason,
        { text = configuration, place, files = [], isRunning },
        ...args
    ] of refusals) {
        const home = temporaryHome(context, { XDG_DATA_HOME: '' });
        home.environment.PATH = `${home.path('bin')}:${home.environment.PATH}`;
        write(home.path(...(place ?? ['.wrenfold', 'config.json'])), text);
        for (const [names, ...file] of files) write(home.path(...names), ...file);
        if (isRunning) await hold(context, home.path('local.wrenfold.lock'));
        const before = contents(home);
        const { status, stderr } = run(home, 'enable', ...args);
        assert.equal(status, 1);
        assert.match(stderr, reason);
        assert.deepEqual(contents(home), before, stderr);
        if (isRunning) assert.match(run(home, 'disable').stderr, reason);
    }
});

test('A service manager that refuses leaves everything as it was', (context) => {
    const home = homeWith(context, configuration);
    // It runs, and cannot open the socket.
    const script = '#!/bin/sh\ncase "$2" in enable|is-active) echo taken >&2; exit 1;; esac\n';
    write(home.path('bin', 'systemctl'), script, 0o755);
    home.environment.PATH = `${home.path('bin')}:${home.environment.PATH}`;
    const before = contents(home);
    assert.match(run(home, 'enable').stderr, /does not listen: taken/);
    assert.deepEqual(contents(home), before);
});

test('The own keys survive damaged and missing files', (context) => {
    const home = homeWith(context, configuration);
    const file = (name) => home.path('.config', 'wrenfold', name);
    run(home, 'enable');
    for (const damage of [
        () => write(file('local-services.json'), '{'),
        () => rmSync(file('local-services.json')),
    ]) {
        damage();
        assert.equal(run(home, 'enable').status, 0);
        assert.equal(run(home, 'status').stdout.match(/Used by Wrenfold: (.*)/)[1], 'yes');
    }
    const replaced = readFileSync(file('before-local-services.json'), 'utf8');
    rmSync(file('local-services.json'));
    rmSync(file('before-local-services.json'));
    const before = contents(home);
    const { status, stderr } = run(home, 'disable');
    assert.equal(status, 1);
    assert.match(stderr, /does not tell .* volcengine.apiKey, deepSeek.apiKey, .*: enter that in/);
    assert.deepEqual(contents(home), before);
    // A key of a companion's is none to go back to.
    write(
        file('before-local-services.json'),
        replaced.replace('own-voice-key', `local-${'x'.repeat(32)}`),
    );
    assert.match(run(home, 'disable').stderr, /used before as volcengine.apiKey: enter/);
    write(file('before-local-services.json'), replaced);
    assert.equal(run(home, 'disable').status, 0);
    assert.equal(home.read(), configuration);
});
