// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// The kinds of models that the engine can run: the files each needs and the options it takes.

const pick = (files, ...roles) => Object.fromEntries(roles.map((role) => [role, files[role]]));

/**
 * By the type that a manifest names: `files` are the roles that it must give a file for; `options`
 * makes the model's part of the engine's options from their paths and a language, `auto` or a code
 * of two or three letters. `takesHotwords` models are told which words to expect;
 * those that `inventsWords` have some for speech in any language.
 */
export const modelTypes = {
    moonshine: {
        inventsWords: true,
        files: ['encoder', 'mergedDecoder', 'tokens'],
        options: (files) => ({ moonshine: pick(files, 'encoder', 'mergedDecoder') }),
    },
    'sense-voice': {
        files: ['model', 'tokens'],
        options: ({ model }, language) => ({
            senseVoice: { model, language, useInverseTextNormalization: 1 },
        }),
    },
    paraformer: {
        files: ['model', 'tokens'],
        options: ({ model }) => ({ paraformer: { model } }),
    },
    whisper: {
        files: ['encoder', 'decoder', 'tokens'],
        options: (files, language) => ({
            whisper: {
                ...pick(files, 'encoder', 'decoder'),
                language: language === 'auto' ? '' : language,
                task: 'transcribe',
                tailPaddings: -1,
            },
        }),
    },
    transducer: {
        files: ['encoder', 'decoder', 'joiner', 'tokens'],
        optionalFiles: ['bpeVocab'],
        takesHotwords: true,
        options: (files, _language, { modelingUnit }) => ({
            transducer: pick(files, 'encoder', 'decoder', 'joiner'),
            ...(modelingUnit && { modelingUnit }),
            ...(files.bpeVocab && { bpeVocab: files.bpeVocab }),
        }),
    },
};

/**
 * The options of the engine for a model.
 *
 * @param {object} model as `readModel` returns it
 * @param {string} language `auto` or a code
 */
export function engineOptions(model, language) {
    const type = modelTypes[model.type];
    return {
        modelConfig: {
            ...type.options(model.files, language, model),
            tokens: model.files.tokens,
            numThreads: 2,
            debug: 0,
        },
        // Only this way of decoding heeds hotwords; without their units they cannot be split.
        ...(takesHotwords(model) && { decodingMethod: 'modified_beam_search', maxActivePaths: 4 }),
    };
}

/** Whether the engine can be told which words to expect from this model. */
export const takesHotwords = ({ type, modelingUnit }) =>
    Boolean(modelTypes[type].takesHotwords && modelingUnit);
