// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { randomUUID } from 'node:crypto';

import { paragraphing } from '../polishing/paragraphs.mjs';
import { polish } from '../polishing/polish.mjs';
import { polishingPath } from '../settings/service-address.mjs';
import { textLimit } from '../settings/service-limits.mjs';
import { sendJson } from './answer.mjs';
import { BodyTooLarge, readBody } from './request-body.mjs';
import { isSameText } from './same-text.mjs';

const label = '语音识别原文：\n';

/** A polishing request that is answered with an HTTP status and a reason. */
class PolishingFailure extends Error {
    constructor(status, message) {
        super(message);
        this.status = status;
    }
}

/** The wire protocol of the chat-completion service, answered by fixed rules. */
export class PolishingHandler {
    path = polishingPath;
    #log;

    /** @param {function(string)} log takes a line without anything that was said */
    constructor(log) {
        this.#log = log;
    }

    isKeyed(headers, key) {
        return isSameText(headers.authorization?.match(/^Bearer +(.*)$/i)?.[1] ?? '', key);
    }

    async handle(request, response) {
        try {
            const { model, prompt, transcript } = parseRequest(await readBody(request, textLimit));
            sendJson(response, 200, completion(model, polish(transcript, paragraphing(prompt))));
        } catch (error) {
            const { status, message } = asFailure(error);
            this.#log(`Polishing failed. status=${status} reason=${message}`);
            this.refuse(response, status, message);
        }
    }

    refuse(response, status, reason) {
        const type = status === 401 ? 'authentication_error' : 'invalid_request_error';
        sendJson(response, status, { error: { message: reason, type, param: null, code: type } });
    }
}

function parseRequest(body) {
    const { model, messages, stream } = parsed(body);
    if (stream) throw new PolishingFailure(400, 'Streaming is not served.');
    const isMessage = (message) =>
        typeof message?.role === 'string' && typeof message?.content === 'string';
    if (!Array.isArray(messages) || !messages.every(isMessage))
        throw new PolishingFailure(400, 'The messages are missing or have no text.');
    const user = messages.findLast(({ role }) => role === 'user');
    if (!user) throw new PolishingFailure(400, 'There is no message of the user.');
    const prompt = messages.find(({ role }) => role === 'system')?.content ?? '';
    const { content } = user;
    return {
        model: typeof model === 'string' ? model : '',
        prompt,
        transcript: content.startsWith(label) ? content.slice(label.length) : content,
    };
}

function parsed(body) {
    try {
        return JSON.parse(body.toString('utf8')) ?? {};
    } catch {
        // What the parser says would quote the text.
        throw new PolishingFailure(400, 'The body is not JSON.');
    }
}

function asFailure(error) {
    if (error instanceof PolishingFailure) return error;
    if (error instanceof BodyTooLarge) return { status: 413, message: 'The body is too long.' };
    return { status: 500, message: `Unexpected: ${error.name}.` };
}

const completion = (model, content) => ({
    id: randomUUID(),
    object: 'chat.completion',
    created: Math.floor(Date.now() / 1000),
    model,
    choices: [{ index: 0, message: { role: 'assistant', content }, finish_reason: 'stop' }],
});
