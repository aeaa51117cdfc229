// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { execFileSync, spawn } from 'node:child_process';
import { once } from 'node:events';
import { readFileSync, symlinkSync, writeFileSync } from 'node:fs';
import { Agent } from 'node:http';
import { connect, createServer } from 'node:net';
import test from 'node:test';

import { engineFolder, modelsFolder } from '../src/settings/folders.mjs';
import { mostUnkeyed } from '../src/settings/service-limits.mjs';
import { units } from '../src/setup/units.mjs';
import { program, run, temporaryHome, write } from './support/home.mjs';
import { ask, polishing, recognition, recording, startServices } from './support/services.mjs';
import { silence, speech } from './support/sound.mjs';

const key = `local-${'k'.repeat(32)}`;
const request = { messages: [{ role: 'user', content: 'um hello' }] };

async function freePort() {
    const probe = createServer().listen(0, '127.0.0.1');
    await once(probe, 'listening');
    const { port } = probe.address();
    probe.close();
    await once(probe, 'close');
    return port;
}

/** A home in which the companion is enabled, on a free port. */
async function enabledHome(context, environment) {
    const home = temporaryHome(context, environment);
    const port = await freePort();
    const settings = home.path('.config', 'wrenfold', 'local-services.json');
    write(settings, JSON.stringify({ port, key }));
    const { status, stderr } = run(home, 'enable');
    assert.equal(status, 0, stderr);
    return { ...home, port, portNow: () => JSON.parse(readFileSync(settings, 'utf8')).port };
}

/** A program and what it says on its standard error, once that has begun. */
async function started(context, home, command, ...args) {
    const child = spawn(command, args, { env: home.environment });
    context.after(() => child.kill());
    const said = { text: '' };
    child.stderr.on('data', (data) => (said.text += data));
    while (!/Listening on/.test(said.text)) await once(child.stderr, 'data');
    return { child, said, ended: once(child, 'exit') };
}

/** A socket that starts the companion with its first connection. */
async function activate(context, host, ...options) {
    const home = await enabledHome(context);
    const variables = Object.keys(home.environment).flatMap((name) => ['-E', name]);
    const service = [process.execPath, program, 'serve', ...options];
    const socket = ['-l', `${host}:${home.port}`, ...variables];
    return {
        port: home.port,
        ...(await started(context, home, 'systemd-socket-activate', ...socket, ...service)),
    };
}

const serve = (context, home) => started(context, home, process.execPath, program, 'serve');

const childrenOf = (pid) => readFileSync(`/proc/${pid}/task/${pid}/children`, 'utf8');

test('The first connection starts the services, the first key loads the model, and they end when nobody with the key asks', async (context) => {
    const { port, said, child, ended } = await activate(context, '127.0.0.1', '--idle', '1500');
    assert.doesNotMatch(said.text, /wrenfold-local/);
    const open = connect(port, '127.0.0.1');
    const wrong = await ask(port, recognition, recording(silence(1)), { key: `${key}x` });
    assert.equal(wrong.status, 401);
    const { body } = await ask(port, polishing, request, { key });
    assert.equal(body.choices[0].message.content, 'Hello.');
    assert.equal(childrenOf(child.pid), '');
    assert.equal((await ask(port, recognition, recording(silence(1)), { key })).code, '20000003');
    assert.match(childrenOf(child.pid), /^\d+ $/);
    assert.deepEqual(await ended, [0, null]);
    open.destroy();
    assert.match(said.text, new RegExp(`wrenfold-local: Listening on http://127.0.0.1:${port}`));
    assert.ok(!said.text.includes(key));
});

test('A socket that other machines can reach is not served', async (context) => {
    const { port, said, ended } = await activate(context, '0.0.0.0');
    await assert.rejects(ask(port, polishing, request));
    assert.deepEqual(await ended, [1, null]);
    assert.match(said.text, /listens on 0\.0\.0\.0, not on 127\.0\.0\.1/);
});

test('Connections without the key leave room for the one with it', async (context) => {
    const { port } = await startServices(context, modelsFolder());
    const idle = Array.from({ length: 60 }, () => connect(port, '127.0.0.1').on('error', () => {}));
    // Long before they would be dropped for their silence.
    const signal = AbortSignal.timeout(5000);
    const oldest = idle.slice(0, -mostUnkeyed);
    await Promise.all(oldest.map((socket) => once(socket, 'close', { signal })));
    assert.equal((await ask(port, polishing, request)).status, 200);
    idle.forEach((socket) => socket.destroy());
});

test('Another user is not even listened to', { skip: process.geteuid() !== 0 }, async (context) => {
    const { port } = await startServices(context, modelsFolder());
    const code = `require('net').connect(${port}, '127.0.0.1').on('error', () => {})
        .on('close', () => console.log('closed'))`;
    const other = spawn(process.execPath, ['-e', code], { uid: 65534, cwd: '/' });
    await once(other.stdout, 'data', { signal: AbortSignal.timeout(5000) });
});

test('Who says nothing for ten seconds is dropped', async (context) => {
    const { port } = await startServices(context, modelsFolder());
    const agent = new Agent({ keepAlive: true });
    const sockets = ['', 'POST / HTTP/1.1\r\nHost:'].map((said) => {
        const socket = connect(port, '127.0.0.1');
        socket.write(said);
        return socket;
    });
    agent.on('free', (socket) => sockets.push(socket));
    await ask(port, polishing, request, { agent });
    const signal = AbortSignal.timeout(13_000);
    await Promise.all(sockets.map((socket) => once(socket.resume(), 'close', { signal })));
    assert.deepEqual([sockets.length, sockets[0].bytesRead], [3, 0]);
});

test('An engine that is missing is an answer, and is used when it is there', async (context) => {
    const home = temporaryHome(context, { XDG_DATA_HOME: '' });
    const data = (...names) => home.path('.local', 'share', 'wrenfold', ...names);
    const port = await freePort();
    write(home.path('.config', 'wrenfold', 'local-services.json'), JSON.stringify({ port, key }));
    write(data('local-services', 'kept'), '');
    symlinkSync(modelsFolder(), data('models'));
    await serve(context, home);
    const sentence = 'Please move the meeting to Thursday at three in the afternoon.';
    const spoken = recording(speech(sentence));
    const { code, message } = await ask(port, recognition, spoken, { key });
    assert.deepEqual(
        [code, message],
        ['55000000', 'the engine is not installed; see: scripts/local install'],
    );
    symlinkSync(engineFolder(), data('local-services', 'engine'));
    assert.equal((await ask(port, recognition, spoken, { key })).text, sentence);
});

/** A program that has a port, and hands on what it is told to another one. */
const relay = (port, to) => `require('net').createServer((socket) => {
    socket.on('data', (data) => console.log(String(data)));
    socket.pipe(require('net').connect(${to}, '127.0.0.1').on('error', () => socket.end('no')))
        .pipe(socket);
}).on('connection', (socket) => socket.on('error', () => {}))
    .listen(${port}, '127.0.0.1', () => console.error('Listening on'))`;

test('The companion is told from a stranger, who never gets the key nor keeps the port', async (context) => {
    const home = await enabledHome(context);
    const running = () =>
        run(home, 'status')
            .stdout.match(/Running on (\S+): (.*)\n/)
            .slice(1);
    const address = (port) => `http://127.0.0.1:${port}`;
    assert.match(running()[1], /^nothing; start them/);
    const { child, ended } = await serve(context, home);
    const [where, what] = running();
    assert.equal(where, address(home.port));
    assert.match(what, new RegExp(`^the local services, process ${child.pid}, since 2\\d{3}-`));
    assert.equal(run(home, 'enable').status, 0);
    assert.equal(home.portNow(), home.port);

    // One that could even have the companion itself answer.
    const other = { ...home, port: await freePort() };
    const settings = home.path('.config', 'wrenfold', 'local-services.json');
    const code = relay(other.port, home.port);
    const stranger = await started(context, home, process.execPath, '-e', code);
    const heard = stranger.child.stdout.setEncoding('utf8').toArray();
    writeFileSync(settings, JSON.stringify({ port: other.port, key }));
    assert.match(running()[1], /^a stranger/);
    assert.equal(run(home, 'enable').status, 0);
    assert.notEqual(home.portNow(), other.port);
    const configuration = home.path('.wrenfold', 'config.json');
    assert.equal(JSON.parse(readFileSync(configuration)).deepSeek.baseURL, address(home.portNow()));
    assert.match(running()[1], /^nothing/);
    child.kill();
    stranger.child.kill();
    await ended;
    const told = (await heard).join('');
    assert.match(told, /POST \/status/);
    assert.ok(!told.includes(key));
    assert.equal(run(home, 'disable').status, 0);
});

test('The unit gives the services little, and names no single Node.js', (context) => {
    const home = temporaryHome(context);
    const texts = units(47613);
    for (const [name, text] of Object.entries(texts)) write(home.path(name), text);
    const [socket, service] = Object.keys(texts).map((name) => home.path(name));
    const analyze = (...args) => execFileSync('systemd-analyze', args, { stdio: 'pipe' });
    analyze('verify', '--man=no', service, socket);
    analyze('security', '--offline=true', '--threshold=30', service);
    assert.ok(!texts['wrenfold-local.service'].includes(process.execPath));
});
