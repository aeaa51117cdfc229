// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { fork } from 'node:child_process';
import { fileURLToPath } from 'node:url';

/** The engine ended, failed or did not answer in time. */
export class EngineError extends Error {}

const program = fileURLToPath(new URL('worker-main.mjs', import.meta.url));

/**
 * One process with one loaded model. It answers one request after another and is of no use any more
 * once it has failed.
 */
export class RecognitionWorker {
    #child;
    #ready;
    #waiting; // { id, resolve, reject } of the request in work
    #lastId = 0;
    #problem;
    #patience;

    /**
     * Starts the process, which loads the model.
     *
     * @param {string} engineFolder the installed npm packages
     * @param {object} options the engine's
     * @param {number} patience milliseconds that loading or one request may take
     */
    constructor(engineFolder, options, patience = 50_000) {
        this.#patience = patience;
        this.#child = fork(program, {
            serialization: 'advanced',
            stdio: ['ignore', 'ignore', 'pipe', 'ipc'],
        });
        let isLoading = true;
        this.#ready = new Promise((resolve, reject) => {
            this.#waiting = { resolve, reject };
        });
        this.#ready.then(() => (isLoading = false)).catch(() => {});
        // While it loads it may say what is wrong with a model; later it would quote the terms.
        this.#child.stderr.on('data', (said) => isLoading && process.stderr.write(said));
        this.#child.on('message', (message) => this.#take(message));
        this.#child.on('error', (error) => this.#fail(`does not start: ${error.message}`));
        this.#child.on('exit', (code, signal) => this.#fail(`ended (${signal ?? code})`));
        this.#child.send({ engineFolder, options });
        this.#limit(this.#ready).catch(() => {});
    }

    get hasFailed() {
        return this.#problem !== undefined;
    }

    /**
     * The words in a piece of sound. To be called again only after the answer.
     *
     * @param {Float32Array} samples
     * @param {number} sampleRate in Hz; the engine converts it to the model's
     * @param {string} [hotwords] separated by "/", for models that take them
     * @returns {Promise<string>}
     * @throws {EngineError}
     */
    recognise(samples, sampleRate, hotwords) {
        return this.#ask({ samples, sampleRate, hotwords });
    }

    /**
     * A transcript with the user's terms put right. To be called again only after the answer.
     *
     * @param {string} transcript
     * @param {string[]} terms
     * @returns {Promise<string>}
     * @throws {EngineError}
     */
    correct(transcript, terms) {
        return this.#ask({ transcript, terms });
    }

    /** Ends the process. */
    stop() {
        this.#fail('was stopped');
        this.#child.kill('SIGKILL');
    }

    async #ask(request) {
        await this.#ready;
        if (this.#problem) throw new EngineError(this.#problem);
        const id = ++this.#lastId;
        const answer = new Promise((resolve, reject) => {
            this.#waiting = { id, resolve, reject };
        });
        this.#child.send({ id, ...request });
        return this.#limit(answer);
    }

    #limit(answer) {
        const timer = setTimeout(() => {
            this.#fail('did not answer in time');
            this.#child.kill('SIGKILL');
        }, this.#patience);
        return answer.finally(() => clearTimeout(timer));
    }

    #take({ id, text, problem }) {
        if (!this.#waiting || this.#waiting.id !== id) return;
        const { resolve, reject } = this.#waiting;
        if (problem !== undefined && id === undefined) this.#problem = `no engine: ${problem}`;
        this.#waiting = undefined;
        if (problem === undefined) resolve(text);
        else reject(new EngineError(this.#problem ?? `the engine failed: ${problem}`));
    }

    #fail(what) {
        this.#problem ??= `the engine's process ${what}`;
        this.#waiting?.reject(new EngineError(this.#problem));
        this.#waiting = undefined;
    }
}
