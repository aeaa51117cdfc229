// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { readFileSync } from 'node:fs';
import { createServer } from 'node:net';
import test from 'node:test';

import { program, run, temporaryHome } from './support/home.mjs';
import { ask, polishing } from './support/services.mjs';

async function freePort() {
    const probe = createServer().listen(0, '127.0.0.1');
    await once(probe, 'listening');
    const { port } = probe.address();
    probe.close();
    await once(probe, 'close');
    return port;
}

/** A socket that starts the companion with its first connection; what both say, a text. */
async function activate(context, host, ...options) {
    const home = temporaryHome(context);
    run(home, 'enable');
    const { key } = JSON.parse(
        readFileSync(home.path('.config', 'wrenfold', 'local-services.json')),
    );
    const port = await freePort();
    const variables = Object.keys(home.environment).flatMap((name) => ['-E', name]);
    const command = [
        '-l',
        `${host}:${port}`,
        ...variables,
        process.execPath,
        program,
        'serve',
        ...options,
    ];
    const child = spawn('systemd-socket-activate', command, { env: home.environment });
    context.after(() => child.kill());
    const said = { text: '' };
    child.stderr.on('data', (data) => (said.text += data));
    while (!/Listening on/.test(said.text)) await once(child.stderr, 'data');
    return { port, key, child, said, ended: once(child, 'exit') };
}

const request = { messages: [{ role: 'user', content: 'um hello' }] };

test('The first connection starts the services, and they end when nobody is connected', async (context) => {
    const { port, key, said, ended } = await activate(context, '127.0.0.1', '--idle', '1000');
    assert.doesNotMatch(said.text, /wrenfold-local/);
    for (const _ of [1, 2]) {
        const headers = { Authorization: `Bearer ${key}` };
        const { body } = await ask(port, polishing, request, { headers });
        assert.equal(body.choices[0].message.content, 'Hello.');
    }
    assert.deepEqual(await ended, [0, null]);
    assert.match(said.text, new RegExp(`wrenfold-local: Listening on 127.0.0.1:${port}`));
    assert.ok(!said.text.includes(key));
});

test('A socket that other machines can reach is not served', async (context) => {
    const { port, said, ended } = await activate(context, '0.0.0.0');
    await assert.rejects(ask(port, polishing, request));
    assert.deepEqual(await ended, [1, null]);
    assert.match(said.text, /listens on 0\.0\.0\.0, not on 127\.0\.0\.1/);
});
