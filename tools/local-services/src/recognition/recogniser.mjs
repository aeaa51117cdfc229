// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { isForeign, isHeardAgain } from './agreement.mjs';
import { edgeCuts, isSilent, splitAtPauses, withEvenEdges } from './pauses.mjs';
import { engineOptions, modelTypes, takesHotwords } from './model-types.mjs';
import { languagesOf } from './models.mjs';
import { RecognitionWorker } from './worker.mjs';

// Models are made for a few sentences at a time; longer recordings are cut.
const longestPieceSeconds = 15;

/** Speech that the model has words for, but different ones whenever it is read. */
export class NotUnderstood extends Error {}

/**
 * Recognises recordings one after another, with one model in memory at a time. A worker that has
 * failed is replaced at once when it had done work before, else with the next recording.
 */
export class Recogniser {
    #engineFolder;
    #worker;
    #loaded; // what the worker was started for
    #hasWorked = false;
    #last = Promise.resolve();

    constructor(engineFolder) {
        this.#engineFolder = engineFolder;
    }

    /** Loads a model ahead, in the background. */
    prepare(model, language) {
        this.#workerFor(model, language);
    }

    /**
     * The words in a recording, in the order of the calls.
     *
     * @param {object} recording samples and sampleRate, as `decodeWave` returns them
     * @param {object} model as `readModel` returns it
     * @param {string} language `auto` or a code
     * @param {string[]} terms words to expect, and to put right
     * @param {AbortSignal} signal gives the recording up, at the latest after a piece of 15 s
     * @returns {Promise<string>} empty when nothing was said
     * @throws {EngineError|NotUnderstood}
     */
    recognise(recording, model, language, terms, signal) {
        const run = () => this.#recognise(recording, model, language, terms, signal);
        const result = this.#last.then(run);
        this.#last = result.catch(() => {});
        return result;
    }

    stop() {
        this.#worker?.stop();
    }

    async #recognise({ samples, sampleRate }, model, language, terms, signal) {
        const hotwords = takesHotwords(model) && terms.length ? biasing(terms) : undefined;
        const texts = [];
        let isAgreed = !modelTypes[model.type].inventsWords || undefined;
        for (const piece of splitAtPauses(samples, sampleRate, longestPieceSeconds)) {
            signal.throwIfAborted();
            if (isSilent(piece, sampleRate)) continue;
            const heard = await this.#with(model, language, (worker) =>
                heardIn(piece, sampleRate, worker, hotwords, !isAgreed),
            );
            if (!isAgreed) isAgreed = heard.isAgreed ?? isAgreed;
            texts.push(heard.text);
        }
        const text = join(texts.filter(Boolean));
        if (isAgreed === false || isForeign(text, model.languages))
            throw new NotUnderstood(`the speech is not understood (${languagesOf(model)})`);
        if (!text || !terms.length) return text;
        return this.#with(model, language, (worker) => worker.correct(text, terms));
    }

    async #with(model, language, work) {
        const worker = this.#workerFor(model, language);
        try {
            const result = await work(worker);
            this.#hasWorked = true;
            return result;
        } catch (error) {
            if (worker.hasFailed && this.#hasWorked) this.#workerFor(model, language);
            throw error;
        }
    }

    #workerFor(model, language) {
        const options = engineOptions(model, language);
        const wanted = JSON.stringify(options);
        if (!this.#worker || this.#worker.hasFailed || this.#loaded !== wanted) {
            this.#worker?.stop();
            this.#worker = new RecognitionWorker(this.#engineFolder, options);
            this.#loaded = wanted;
            this.#hasWorked = false;
        }
        return this.#worker;
    }
}

/**
 * The words in a piece as { text }, and in doubt whether they are heard again, as `isAgreed`. Small
 * models hear nothing at all when it does not begin with speech.
 */
async function heardIn(piece, sampleRate, worker, hotwords, isInDoubt) {
    for (const cut of edgeCuts) {
        const sound = withEvenEdges(piece, sampleRate, cut);
        const heardAt = async (pitch) =>
            (await worker.recognise(sound, Math.round(pitch * sampleRate), hotwords)).trim();
        const text = await heardAt(1);
        if (!text) continue;
        const isSecondTry = cut !== edgeCuts[0];
        return { text, isAgreed: isInDoubt && (await isHeardAgain(text, isSecondTry, heardAt)) };
    }
    return { text: '' };
}

/** The engine's way to write a list; its own signs cannot be part of a word. */
const biasing = (terms) => terms.map((term) => term.replace(/[/:#@]/g, ' ').trim()).join('/');

/** Pieces of text in a row, with blanks where the script uses them. */
const join = (texts) =>
    texts.reduce((all, text) => {
        const isTight = /\p{sc=Han}$|[，。？！；：、]$/u.test(all) || /^\p{sc=Han}/u.test(text);
        return all && !isTight ? `${all} ${text}` : all + text;
    }, '');
