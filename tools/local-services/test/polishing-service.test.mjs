// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import test from 'node:test';

import { ask, polishing, startServices } from './support/services.mjs';

const messages = (content) => [
    { role: 'system', content: 'any prompt' },
    { role: 'user', content },
];

test('A chat completion polishes what follows the label', async (context) => {
    const { socket, lines } = await startServices(context, '/nonexistent');
    const request = {
        model: 'any',
        messages: messages('语音识别原文：\num the the secret'),
        stream: false,
    };
    const { status, body } = await ask(socket, polishing, request);
    assert.equal(status, 200);
    assert.deepEqual(body.choices[0].message, { role: 'assistant', content: 'The secret.' });
    assert.equal(body.model, 'any');

    const rows = [
        ['no JSON', 400],
        ['null', 400],
        [{}, 400],
        [{ messages: [] }, 400],
        [{ messages: [{ role: 'user', content: null }] }, 400],
        [{ ...request, stream: true }, 400],
        [{ messages: messages('long '.repeat(300_000)) }, 413],
    ];
    for (const [wrong, expected] of rows) {
        const answer = await ask(socket, polishing, wrong);
        assert.equal(answer.status, expected);
        assert.ok(answer.body.error.message);
    }
    assert.doesNotMatch(lines.join('\n'), /secret|long long/);
    assert.equal((await ask(socket, polishing, request)).status, 200);
});
