// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { cpSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import test from 'node:test';

import { decodeWave } from '../src/recognition/wave-file.mjs';
import { modelsFolder } from '../src/settings/folders.mjs';
import { ask, key, recognition, recording, startServices } from './support/services.mjs';
import { joined, mandarin, noiseSource, silence, speech, wave } from './support/sound.mjs';

const sentence = 'Please move the meeting to Thursday at three in the afternoon.';
const spoken = speech(sentence);

async function assertWorks(socket) {
    const { code, text } = await ask(socket, recognition, recording(spoken));
    assert.deepEqual([code, text], ['20000000', sentence]);
}

test('Speech is recognised, at any rate, in any format and beyond the length of one piece', async (context) => {
    const { socket, lines } = await startServices(context, modelsFolder());
    const formats = [
        [],
        ['-r', '44100', '-c', '2'],
        ['-e', 'float', '-b', '32'],
        ['-b', '24', '-r', '48000'],
    ];
    for (const output of formats) {
        const { text } = await ask(socket, recognition, recording(speech(sentence, output)));
        assert.equal(text, sentence, output.join(' '));
    }
    for (const lead of ['0.137', '0.8']) {
        const late = speech(sentence, [], ['pad', lead, '0.4']);
        assert.equal((await ask(socket, recognition, recording(late))).text, sentence, lead);
    }
    const others = ['The train leaves every morning.', 'They live in the old wooden house.'];
    const paragraph = [sentence, ...others, ...others, sentence, ...others].join(' ');
    const long = await ask(socket, recognition, recording(speech(paragraph)));
    for (const [words, times] of [
        ['Thursday', 2],
        ['every morning', 3],
        ['wooden house', 3],
    ])
        assert.equal(long.text.split(words).length - 1, times, long.text);

    const terms = ['THURSDAY', 'Meating'];
    const corrected = await ask(socket, recognition, recording(spoken, terms));
    assert.equal(corrected.text, 'Please move the meeting to THURSDAY at three in the afternoon.');
    assert.equal(lines.filter((line) => /audioSeconds=3\.\d\d /.test(line)).length, 6);
    assert.doesNotMatch(lines.join('\n'), /thursday|meeting|key-of/i);
});

test('Clicks, noise and pauses before the first word lose none', async (context) => {
    const { socket } = await startServices(context, modelsFolder());
    const { samples } = decodeWave(spoken);
    const next = noiseSource(7);
    const noise = (seconds, loudness) =>
        new Float32Array(seconds * 16000).map(() => loudness * next());
    const click = noise(0.015, 0.15);
    for (const [name, ...before] of [
        ['click, 1 s', click, noise(1, 0)],
        ['click, 2.5 s', click, noise(2.5, 0)],
        ['noise', noise(2, 0.03)],
        ['louder noise, 1 s', noise(2, 0.08), noise(1, 0)],
    ]) {
        const { text } = await ask(
            socket,
            recognition,
            recording(wave(joined([...before, samples]))),
        );
        assert.equal(text, sentence, name);
    }
    const onlyNoise = await ask(socket, recognition, recording(wave(noise(3, 0.1))));
    assert.equal(onlyNoise.code, '20000003');
});

test('What is said in another language is refused, not made English', async (context) => {
    const { socket } = await startServices(context, modelsFolder());
    for (const [pinyin, variant, speed] of [
        // English words, others each time; letters that are not English.
        ['yi1sheng1 rang4 ta1 duo1 he1shui3 zao3dian3 shui4jiao4', 'm7', 175],
        ['wo3 xiang3 ding4 yi4zhang1 kao4 chuang1hu5 de5 zhuo1zi5', 'f4', 130],
    ]) {
        const file = mandarin(pinyin, variant, speed);
        const heard = await ask(socket, recognition, recording(file));
        assert.deepEqual([heard.code, heard.text], ['45000001', undefined], heard.text);
        assert.match(heard.message, /not understood \(English only\)/);
    }
    await assertWorks(socket);
});

test('What cannot be recognised is answered in the form of the service', async (context) => {
    const { socket } = await startServices(context, modelsFolder());
    const withData = (data) => ({ audio: { data } });
    const rows = [
        ['no JSON', '45000001'],
        ['null', '45000001'],
        [{}, '45000001'],
        [withData(5), '45000001'],
        [withData('a=b='), '45000001'],
        [withData(''), '45000002'],
        [withData('AAAA'), '45000151'],
        [recording(Buffer.concat([Buffer.from('RIFF'), Buffer.alloc(300)])), '45000151'],
        [recording(wave([0], { format: 2 })), '45000151'],
        [recording(wave([0], { channels: 9 })), '45000151'],
        [recording(wave([0], { sampleRate: 0 })), '45000151'],
        [recording(silence(0)), '45000002'],
        [recording(silence(0.09)), '45000002'],
        [recording(silence(1)), '20000003'],
        [recording(silence(601, 8000)), '45000001'],
        [recording(silence(7200, 8000)), '45000001'],
        [{ ...recording(spoken), request: { corpus: { context: '{' } } }, '45000001'],
    ];
    for (const [body, expected] of rows) {
        const { status, code, message, text } = await ask(socket, recognition, body);
        assert.deepEqual([status, code, text], [200, expected, undefined], message);
        assert.ok(message.length > 5);
    }
    await assertWorks(socket);
});

test('A language without a model is refused, and so is everything without any model', async (context) => {
    const { socket } = await startServices(context, modelsFolder());
    const chinese = await ask(socket, `${recognition}?language=zh`, recording(spoken));
    assert.equal(chinese.code, '45000001');
    assert.match(chinese.message, /no recognition model for language "zh"/);
    const english = await ask(socket, `${recognition}?language=en`, recording(spoken));
    assert.equal(english.text, sentence);
    const empty = await startServices(context, '/nonexistent');
    assert.match(
        (await ask(empty.socket, recognition, recording(spoken))).message,
        /no recognition model/,
    );
});

test('Too many recordings at once are refused, the others wait', async (context) => {
    const { socket } = await startServices(context, modelsFolder());
    const answers = await Promise.all(
        Array.from({ length: 7 }, () => ask(socket, recognition, recording(spoken))),
    );
    const busy = answers.filter(({ code }) => code === '55000031');
    assert.equal(busy.length, 3);
    assert.equal(answers.filter(({ text }) => text === sentence).length, 4);
    await assertWorks(socket);
});

/** The process that runs the engine, a child of this one. */
const enginePid = () =>
    Number(readFileSync(`/proc/self/task/${process.pid}/children`, 'utf8').trim());

test('An engine that ends takes one request along', async (context) => {
    const { socket } = await startServices(context, modelsFolder());
    await assertWorks(socket);
    const first = enginePid();
    const asked = ask(socket, recognition, recording(speech(sentence, [], ['repeat', '20'])));
    await new Promise((resolve) => setTimeout(resolve, 200));
    process.kill(first, 'SIGSEGV');
    const { code, message } = await asked;
    assert.equal(code, '55000000');
    assert.match(message, /ended \(SIGSEGV\)/);
    // It is loaded again without being asked.
    assert.notEqual(enginePid(), first);
    await assertWorks(socket);
});

test('A model that the engine cannot read fails its requests and no others', async (context) => {
    const models = mkdtempSync(join(tmpdir(), 'wrenfold-models-'));
    context.after(() => rmSync(models, { recursive: true }));
    cpSync(join(modelsFolder(), 'moonshine-tiny-en'), join(models, 'english'), { recursive: true });
    cpSync(join(models, 'english'), join(models, 'broken'), { recursive: true });
    const manifest = join(models, 'broken', 'manifest.json');
    writeFileSync(manifest, readFileSync(manifest, 'utf8').replace('"en"', '"zh"'));
    writeFileSync(join(models, 'broken', 'encoder_model.onnx'), 'nonsense');
    const { socket } = await startServices(context, models);
    for (const _ of [1, 2]) {
        const { code, message } = await ask(
            socket,
            `${recognition}?language=zh`,
            recording(spoken),
        );
        assert.equal(code, '55000000', message);
    }
    assert.equal(
        (await ask(socket, `${recognition}?language=en`, recording(spoken))).text,
        sentence,
    );
});

test('Only who knows the key is served', async (context) => {
    const { socket } = await startServices(context, modelsFolder());
    const rows = [
        [{ method: 'OPTIONS' }, 405],
        [{ method: 'PUT' }, 405],
        [{ headers: { 'X-Api-Key': '', Authorization: '' } }, 401],
        [{ headers: { 'X-Api-Key': `${key}x`, Authorization: `Bearer ${key}x` } }, 401],
        [{ headers: { 'Content-Type': 'text/plain' } }, 415],
    ];
    const body = JSON.stringify(recording(silence(30)));
    for (const path of [recognition, '/chat/completions'])
        for (const [options, expected] of rows) {
            const { status, body: answer } = await ask(socket, path, body, options);
            assert.equal(status, expected, JSON.stringify([path, options, answer]));
        }
    assert.equal((await ask(socket, '/', body)).status, 404);
});
