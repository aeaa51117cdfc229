// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { execFileSync, spawn, spawnSync } from 'node:child_process';
import { once } from 'node:events';
import { mkdirSync, readFileSync, statSync, symlinkSync } from 'node:fs';
import { Agent } from 'node:http';
import { connect, createServer } from 'node:net';
import { dirname } from 'node:path';
import test from 'node:test';

import {
    applicationFile,
    engineFolder,
    modelsFolder,
    replacedFile,
} from '../src/settings/folders.mjs';
import { ownUnitParts, serviceUnit, socketUnit, unitSources } from '../src/setup/units.mjs';
import { program, run, temporaryHome, write } from './support/home.mjs';
import { ask, polishing, recognition, recording, startServices } from './support/services.mjs';
import { silence, speech } from './support/sound.mjs';

const request = { messages: [{ role: 'user', content: 'um hello' }] };

/** A home in which the companion is enabled. */
function enabledHome(context, environment) {
    const home = temporaryHome(context, environment);
    const { status, stderr } = run(home, 'enable');
    assert.equal(status, 0, stderr);
    const settings = home.path('.config', 'wrenfold', 'local-services.json');
    return { ...home, ...JSON.parse(readFileSync(settings, 'utf8')) };
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
async function activate(context, ...options) {
    const home = enabledHome(context);
    mkdirSync(dirname(home.socket));
    const variables = Object.keys(home.environment).flatMap((name) => ['-E', name]);
    const service = [process.execPath, program, 'serve', ...options];
    const listening = ['-l', home.socket, ...variables];
    const child = await started(context, home, 'systemd-socket-activate', ...listening, ...service);
    return { ...home, ...child };
}

const serve = (context, home) => started(context, home, process.execPath, program, 'serve');

const childrenOf = (pid) => readFileSync(`/proc/${pid}/task/${pid}/children`, 'utf8');

test('The first connection starts the services, the model is loaded unasked, and they end when nobody with the key asks', async (context) => {
    const { socket, key, said, child, ended } = await activate(context, '--idle', '1500');
    assert.equal(said.text.split('\n').length, 2);
    const open = connect(socket);
    const wrong = await ask(socket, recognition, recording(silence(1)), { key: `${key}x` });
    assert.equal(wrong.status, 401);
    const { body } = await ask(socket, polishing, request, { key });
    assert.equal(body.choices[0].message.content, 'Hello.');
    const worker = childrenOf(child.pid);
    assert.match(worker, /^\d+ $/);
    assert.equal((await ask(socket, recognition, recording(silence(1)), { key })).code, '20000003');
    assert.equal(childrenOf(child.pid), worker);
    assert.deepEqual(await ended, [0, null]);
    open.destroy();
    assert.match(said.text, new RegExp(`wrenfold-local: Listening on ${socket}`));
    assert.ok(!said.text.includes(key));
});

test('A socket on a port, which others can reach and take, is not served', async (context) => {
    const { environment } = enabledHome(context);
    const server = createServer().listen(0, '127.0.0.1');
    await once(server, 'listening');
    const command = `LISTEN_FDS=1 LISTEN_PID=$$ exec "${process.execPath}" "${program}" serve`;
    const stdio = ['ignore', 'ignore', 'pipe', server._handle.fd];
    const child = spawn('sh', ['-c', command], { env: environment, stdio });
    const said = child.stderr.setEncoding('utf8').toArray();
    assert.deepEqual(await once(child, 'exit'), [1, null]);
    assert.match((await said).join(''), /others could reach .* a port: wrenfold-local enable/);
    server.close();
});

test('Who says nothing for ten seconds is dropped', async (context) => {
    const { socket: path } = await startServices(context, modelsFolder());
    const agent = new Agent({ keepAlive: true });
    const sockets = ['', 'POST / HTTP/1.1\r\nHost:'].map((said) => {
        const socket = connect(path);
        socket.write(said);
        return socket;
    });
    agent.on('free', (socket) => sockets.push(socket));
    await ask(path, polishing, request, { agent });
    const signal = AbortSignal.timeout(13_000);
    await Promise.all(sockets.map((socket) => once(socket.resume(), 'close', { signal })));
    assert.deepEqual([sockets.length, sockets[0].bytesRead], [3, 0]);
});

test('An engine that is missing is an answer, and is used when it is there', async (context) => {
    const home = temporaryHome(context, { XDG_DATA_HOME: '' });
    const data = (...names) => home.path('.local', 'share', 'wrenfold', ...names);
    const [socket, key] = [home.path('socket'), 'key-of-the-test'];
    write(home.path('.config', 'wrenfold', 'local-services.json'), JSON.stringify({ socket, key }));
    write(data('local-services', 'kept'), '');
    symlinkSync(modelsFolder(), data('models'));
    await serve(context, home);
    const sentence = 'Please move the meeting to Thursday at three in the afternoon.';
    const spoken = recording(speech(sentence));
    const { code, message } = await ask(socket, recognition, spoken, { key });
    assert.deepEqual(
        [code, message],
        ['55000000', 'the engine is not installed; see: wrenfold-local install'],
    );
    symlinkSync(engineFolder(), data('local-services', 'engine'));
    assert.equal((await ask(socket, recognition, spoken, { key })).text, sentence);
});

test('What runs is told, and one that was killed leaves its place to the next', async (context) => {
    const home = enabledHome(context);
    const running = () => run(home, 'status').stdout.match(/Running: (.*)\n/)[1];
    assert.match(running(), /^nothing; start them/);
    for (const _ of [1, 2]) {
        const { child, ended } = await serve(context, home);
        assert.equal(statSync(home.socket).mode & 0o077, 0);
        const form = new RegExp(`^the local services, process ${child.pid}, since 2\\d{3}-`);
        assert.match(running(), form);
        const second = spawnSync(process.execPath, [program, 'serve'], { env: home.environment });
        assert.match(String(second.stderr), /already in use/);
        assert.match(running(), form);
        child.kill('SIGKILL');
        await ended;
        assert.match(running(), /^nothing/);
    }
});

test('The unit gives the services little, and names no single Node.js', (context) => {
    const home = temporaryHome(context);
    const files = ownUnitParts('/run/user/1000/wrenfold-local/socket');
    const names = [socketUnit, serviceUnit];
    for (const name of names) files[name] = readFileSync(`${unitSources}/${name}`, 'utf8');
    for (const [name, text] of Object.entries(files)) write(home.path(name), text);
    const [socket, service] = names.map((name) => home.path(name));
    const analyze = (...args) => execFileSync('systemd-analyze', args, { stdio: 'pipe' });
    analyze('verify', '--man=no', service, socket);
    analyze('security', '--offline=true', '--threshold=30', service);
    // What the measure does not count, or counts for less than it is here.
    const wanted = {
        [socketUnit]: ['SocketMode=0600', 'DirectoryMode=0700'],
        [serviceUnit]: [
            ...['MemoryMax=2G', 'MemorySwapMax=0', 'LimitCORE=0', 'ProtectSystem=strict'],
            ...['PrivateUsers=yes', 'PrivateNetwork=yes', 'IPAddressDeny=any'],
            'InaccessiblePaths=-%h/.wrenfold -%h/.config/wrenfold/before-local-services.json',
        ],
        [`${serviceUnit}.d/own.conf`]: [
            `InaccessiblePaths=\nInaccessiblePaths="-${dirname(applicationFile())}" "-${replacedFile()}"`,
        ],
    };
    for (const [name, lines] of Object.entries(wanted))
        for (const line of lines) assert.ok(files[name].includes(`\n${line}\n`), line);
    assert.ok(!Object.values(files).join().includes(process.execPath));
});
