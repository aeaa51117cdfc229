// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { join } from 'node:path';
import test from 'node:test';

import { engineOptions } from '../src/recognition/model-types.mjs';
import { chooseModel, listModels, readModel } from '../src/recognition/models.mjs';
import { RecognitionWorker } from '../src/recognition/worker.mjs';
import { engineFolder } from '../src/settings/folders.mjs';
import { temporaryHome, write } from './support/home.mjs';

/** A model folder whose files hold nonsense. */
function writeModel(home, name, manifest) {
    for (const file of Object.values(manifest.files).filter(Boolean))
        write(home.path(name, file), 'nonsense');
    write(home.path(name, 'manifest.json'), JSON.stringify(manifest));
    return home.path(name);
}

const usual = { languages: ['zh'], licence: 'MIT' };
const types = {
    'sense-voice': { model: 'model.onnx', tokens: 'tokens.txt' },
    paraformer: { model: 'model.onnx', tokens: 'tokens.txt' },
    whisper: { encoder: 'model.onnx', decoder: 'decoder.onnx', tokens: 'tokens.txt' },
    transducer: {
        encoder: 'model.onnx',
        decoder: 'd.onnx',
        joiner: 'j.onnx',
        tokens: 'tokens.txt',
    },
    moonshine: { encoder: 'model.onnx', mergedDecoder: 'd.onnx', tokens: 'tokens.txt' },
};

test('The engine opens the files of each type of model', async (context) => {
    const home = temporaryHome(context);
    for (const [type, files] of Object.entries(types)) {
        const folder = writeModel(home, type, { ...usual, type, files, modelingUnit: 'cjkchar' });
        const worker = new RecognitionWorker(
            engineFolder(),
            engineOptions(readModel(folder), 'zh'),
        );
        const opened = `Load model from ${join(folder, 'model.onnx')} failed`;
        await assert.rejects(worker.recognise(new Float32Array(16000), 16000), {
            message: new RegExp(opened),
        });
        worker.stop();
    }
});

test('A manifest that cannot be used says why, and harms no other model', (context) => {
    const home = temporaryHome(context);
    const { paraformer: files } = types;
    const good = { ...usual, type: 'paraformer', files };
    const rows = {
        'a-type': [{ ...good, type: 'constructor' }, /the type is none of/],
        'b-file': [{ ...good, files: { tokens: 'tokens.txt' } }, /no file for "model"/],
        'c-path': [
            { ...good, files: { ...files, model: '../good/model.onnx' } },
            /no file for "model"/,
        ],
        'c-empty': [{ ...good, files: { ...files, tokens: '' } }, /no file for "tokens"/],
        'd-languages': [{ ...good, languages: ['Chinese'] }, /the languages/],
        'e-licence': [{ ...good, licence: undefined }, /the licence/],
    };
    for (const [name, [manifest]] of Object.entries(rows)) writeModel(home, name, manifest);
    const wrongShapes = {
        '{': /manifest.json/,
        null: /not a JSON object/,
        '"x"': /not a JSON object/,
        '[]': /the type/,
        '{"type": ["whisper"]}': /the type/,
        [JSON.stringify({ ...good, files: null })]: /no file for "model"/,
        [JSON.stringify({ ...good, languages: null })]: /the languages/,
        [JSON.stringify({ ...good, modelingUnit: {} })]: /modelingUnit/,
    };
    for (const [index, text] of Object.keys(wrongShapes).entries())
        write(home.path(`shape${index}`, 'manifest.json'), text);
    writeModel(home, 'good', good);
    const found = Object.fromEntries(listModels(home.path()).map((each) => [each.name, each]));
    for (const [name, [, problem]] of Object.entries(rows))
        assert.match(found[name].problem, problem);
    for (const [index, problem] of Object.values(wrongShapes).entries())
        assert.match(found[`shape${index}`].problem, problem);
    assert.equal(found.good.model.licence, 'MIT');
});

test('A language gets the model made for it, any language the one that knows most', () => {
    const models = [['en'], ['zh', 'en', 'ja'], ['zh']].map((languages) => ({ languages }));
    const chosen = (language) => chooseModel(models, language)?.languages.join(' ');
    assert.deepEqual(['auto', 'en', 'zh', 'ja', 'fr'].map(chosen), [
        'zh en ja',
        'en',
        'zh',
        'zh en ja',
        undefined,
    ]);
    assert.equal(chooseModel([], 'auto'), undefined);
});
