// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { randomBytes } from 'node:crypto';
import { once } from 'node:events';
import { request } from 'node:http';

import { answerProof, isSameText, questionProof } from '../settings/key-proof.mjs';
import { host, statusPath, usualPort } from '../settings/service-address.mjs';
import { isPortKept } from './systemd.mjs';

const patience = 3000; // milliseconds
const longestAnswer = 1000;

async function textOf(response) {
    let text = '';
    for await (const chunk of response.setEncoding('utf8')) {
        text += chunk;
        if (text.length > longestAnswer) throw new Error('this is no answer of ours');
    }
    return text;
}

async function ask(port, key) {
    const challenge = randomBytes(32).toString('hex');
    const headers = {
        'Content-Type': 'application/json',
        'X-Challenge': challenge,
        'X-Proof': questionProof(key, challenge),
    };
    const signal = AbortSignal.timeout(patience);
    const to = { host, port, path: statusPath, method: 'POST', agent: false, headers, signal };
    const [response] = await once(request(to).end(), 'response');
    const text = await textOf(response);
    const proof = response.headers['x-proof'] ?? '';
    if (isSameText(proof, answerProof(key, challenge, port, text))) return JSON.parse(text);
    throw new Error('the answer proves nothing');
}

/**
 * Who listens on a port. The key is not told to them.
 *
 * @param {{port: number, key: string}} settings
 * @returns {Promise<{isFree?: boolean, isStranger?: boolean,
 *     companion?: {process: number, since: string}}>} one of them
 */
export async function portHolder({ port, key }) {
    try {
        return { companion: await ask(port, key) };
    } catch (error) {
        return error.code === 'ECONNREFUSED' ? { isFree: true } : { isStranger: true };
    }
}

/**
 * The port to enable the companion on: the one it has, unless a stranger listens there.
 *
 * @param {{port: number, key: string}} [settings] those of an earlier time
 * @throws {Error} when there is none
 */
export async function choosePort(settings) {
    if (settings && (isPortKept() || !(await portHolder(settings)).isStranger))
        return settings.port;
    for (let port = usualPort; port < usualPort + 20; ++port)
        if ((await portHolder({ port, key: '' })).isFree) return port;
    throw new Error(`all ports from ${usualPort} to ${usualPort + 19} are taken`);
}
