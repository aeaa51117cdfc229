// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { existsSync, readFileSync, statSync } from 'node:fs';
import test from 'node:test';

import { run, temporaryHome, write } from './support/home.mjs';

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

test('Enabling changes four values and nothing else, disabling puts them back', (context) => {
    const home = homeWith(context, configuration);
    for (const language of ['zh', 'auto']) {
        assert.equal(run(home, 'enable', '--language', language).status, 0);
        const { deepSeek, volcengine } = JSON.parse(home.read());
        const origin = deepSeek.baseURL;
        assert.match(origin, /^http:\/\/127\.0\.0\.1:\d+$/);
        const query = language === 'zh' ? '?language=zh' : '';
        assert.equal(volcengine.endpoint, `${origin}/api/v3/auc/bigmodel/recognize/flash${query}`);
        assert.match(deepSeek.apiKey, /^local-[\w-]{32}$/);
        assert.equal(volcengine.apiKey, deepSeek.apiKey);
        assert.match(run(home, 'status').stdout, /Used by Wrenfold: yes/);
        // The companion's own settings have nothing of the user's.
        const settings = home.path('.config', 'wrenfold', 'local-services.json');
        assert.doesNotMatch(readFileSync(settings, 'utf8'), /own-|example/);
        for (const file of [settings, home.file]) assert.equal(statSync(file).mode & 0o777, 0o600);
        const others = home.read().replaceAll(/"(local-|http:)[^"]*"/g, '"?"');
        assert.equal(others, configuration.replaceAll(/"(own-|https:)(\\.|[^"])*"/g, '"?"'));
    }
    assert.equal(run(home, 'disable').status, 0);
    assert.equal(home.read(), configuration);
    assert.match(run(home, 'status').stdout, /Used by Wrenfold: no/);
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

test('While the application runs nothing is changed', async (context) => {
    const home = homeWith(context, configuration);
    run(home, 'enable');
    const enabled = home.read();
    const lock = spawn('flock', [
        home.path('local.wrenfold.lock'),
        'sh',
        '-c',
        'echo held; exec cat',
    ]);
    await once(lock.stdout, 'data');
    for (const command of ['enable', 'disable']) {
        const { status, stderr } = run(home, command);
        assert.equal(status, 1);
        assert.match(stderr, /Wrenfold is running/);
    }
    assert.equal(home.read(), enabled);
    lock.stdin.end();
    await once(lock, 'exit');
    assert.equal(run(home, 'disable').status, 0);
});

test('A configuration that cannot be changed safely is left alone', (context) => {
    for (const text of [
        '',
        '[]',
        '{"volcengine": {}}',
        configuration.replace('"model": "m"}', ''),
    ]) {
        const home = homeWith(context, text);
        assert.equal(run(home, 'enable').status, 1, text);
        assert.equal(home.read(), text);
    }
    const home = temporaryHome(context);
    write(home.path('.hush-wire', 'config.json'), configuration);
    assert.match(run(home, 'enable').stderr, /start it once first/);
    assert.equal(existsSync(home.path('.wrenfold')), false);
});
