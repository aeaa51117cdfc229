// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { existsSync } from 'node:fs';

import { chooseModel, listModels } from '../recognition/models.mjs';
import { NotUnderstood } from '../recognition/recogniser.mjs';
import { EngineError } from '../recognition/worker.mjs';
import { engineFolder } from '../settings/folders.mjs';
import { ownName } from '../settings/own-name.mjs';
import { recognitionPath } from '../settings/service-address.mjs';
import { mostRecordings, recordingLimit } from '../settings/service-limits.mjs';
import { sendJson } from './answer.mjs';
import { parseRecognition, RecognitionFailure, statusCodes } from './recognition-request.mjs';
import { BodyTooLarge, readBody } from './request-body.mjs';
import { isSameText } from './same-text.mjs';

/** The wire protocol of the recognition service, answered by a Recogniser. */
export class RecognitionHandler {
    path = recognitionPath;
    #recogniser;
    #modelsFolder;
    #log;
    #active = 0;
    #turn = Promise.resolve();

    /**
     * @param {import('../recognition/recogniser.mjs').Recogniser} recogniser
     * @param {string} modelsFolder looked through anew with each request
     * @param {function(string)} log takes a line without anything that was said
     */
    constructor(recogniser, modelsFolder, log) {
        this.#recogniser = recogniser;
        this.#modelsFolder = modelsFolder;
        this.#log = log;
    }

    isKeyed(headers, key) {
        return isSameText(headers['x-api-key'] ?? '', key);
    }

    /** Loads the model of a language before it is asked for. */
    prepare(language) {
        const model = this.#modelFor(language);
        if (model) this.#recogniser.prepare(model, language);
    }

    async handle(request, response, query) {
        const isBusy = this.#active >= mostRecordings;
        ++this.#active;
        try {
            const language = query.get('language') || 'auto';
            const model = this.#modelFor(language);
            // It is loaded while the recording arrives, unless another is in work.
            if (model && this.#active === 1) this.#recogniser.prepare(model, language);
            const waiting = { body: await readBody(request, isBusy ? 0 : recordingLimit) };
            if (!model)
                throw new RecognitionFailure(statusCodes.badRequest, missingModel(language));
            const signal = abortedWith(response);
            const text = await this.#inTurn(() =>
                this.#recognise(waiting, model, language, signal),
            );
            this.#answer(response, statusCodes.success, 'OK', { result: { text } });
        } catch (error) {
            if (request.socket.destroyed) return;
            const { code, message } = asFailure(error, isBusy);
            this.#log(`Recognition failed. code=${code} reason=${message}`);
            this.#answer(response, code, message, {});
        } finally {
            --this.#active;
        }
    }

    refuse(response, status, reason) {
        this.#answer(response, statusCodes.badRequest, reason, {}, status);
    }

    /** One after another: a recording that waits takes less room as it came than decoded. */
    #inTurn(work) {
        const result = this.#turn.then(work);
        this.#turn = result.catch(() => {});
        return result;
    }

    async #recognise(waiting, model, language, signal) {
        signal.throwIfAborted();
        const { recording, terms } = parseRecognition(waiting.body);
        delete waiting.body;
        const start = performance.now();
        const heard = await this.#recogniser.recognise(recording, model, language, terms, signal);
        if (!heard) throw new RecognitionFailure(statusCodes.silence, 'nothing was said');
        const seconds = recording.samples.length / recording.sampleRate;
        this.#log(
            `Recognised. model=${model.name} audioSeconds=${seconds.toFixed(2)} ` +
                `seconds=${((performance.now() - start) / 1000).toFixed(2)}`,
        );
        return heard;
    }

    #modelFor(language) {
        const models = listModels(this.#modelsFolder).flatMap(({ model }) => model ?? []);
        return chooseModel(models, language);
    }

    #answer(response, code, message, body, status = 200) {
        sendJson(response, status, body, {
            'X-Api-Status-Code': code,
            'X-Api-Message': message.replace(/[^\x20-\x7e]/g, '?'),
        });
    }
}

const missingEngine = `the engine is not installed; see: ${ownName} install`;

function missingModel(language) {
    const asked = /^[A-Za-z-]{1,10}$/.test(language) ? `language "${language}"` : 'such a language';
    return language === 'auto'
        ? `no recognition model is installed; see: ${ownName} models`
        : `no recognition model for ${asked} is installed; see: ${ownName} models`;
}

function asFailure(error, isBusy) {
    if (isBusy) return new RecognitionFailure(statusCodes.busy, 'too many recordings at once');
    if (error instanceof RecognitionFailure) return error;
    if (error instanceof BodyTooLarge)
        return new RecognitionFailure(
            statusCodes.badRequest,
            `the body is longer than ${recordingLimit} bytes`,
        );
    if (error instanceof NotUnderstood)
        return new RecognitionFailure(statusCodes.badRequest, error.message);
    if (error instanceof EngineError)
        return new RecognitionFailure(
            statusCodes.failure,
            existsSync(engineFolder()) ? error.message : missingEngine,
        );
    return new RecognitionFailure(statusCodes.failure, `unexpected: ${error.name}`);
}

/** A signal that tells that nobody waits for the answer any more. */
function abortedWith(response) {
    const controller = new AbortController();
    response.once('close', () => controller.abort());
    return controller.signal;
}
