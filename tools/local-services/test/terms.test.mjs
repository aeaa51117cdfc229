// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import test from 'node:test';

import { readLanguage } from '../src/recognition/language.mjs';
import { engineOptions } from '../src/recognition/model-types.mjs';
import { readModel } from '../src/recognition/models.mjs';
import { correctTerms } from '../src/recognition/terms.mjs';
import { RecognitionWorker } from '../src/recognition/worker.mjs';
import { engineFolder, modelsFolder } from '../src/settings/folders.mjs';

const language = readLanguage(engineFolder());

const rows = [
    // Case and spaces.
    [
        'we use git hub, chatgpt and you-tube.',
        'GitHub ChatGPT YouTube',
        'we use GitHub, ChatGPT and YouTube.',
    ],
    ['我们用docker部署, 用slack聊', 'Docker Slack', '我们用Docker部署, 用Slack聊'],
    ['请 张 三 来', '张三', '请 张三 来'],
    ['see it on you tube today', 'YouTube', 'see it on YouTube today'],
    ['my Latex file, we use slack.', 'LaTeX Slack', 'my LaTeX file, we use Slack.'],
    // A few letters, or as it sounds.
    ['kubernetis and postgre sequel', 'Kubernetes PostgreSQL', 'Kubernetes and PostgreSQL'],
    ['the ren fold of cooper netties', 'Wrenfold Kubernetes', 'the Wrenfold of Kubernetes'],
    ['trained in pie torch by phigma', 'PyTorch Figma', 'trained in PyTorch by Figma'],
    ['meeting to thursday at three', 'THURSDAY Meating', 'meeting to THURSDAY at three'],
    ["two dockers and docker's file", 'Docker', "two Dockers and Docker's file"],
    // Other words, however short or common the term.
    ['it is up to us in the cloud where they docked', 'IT US Clowd Wares Docker'],
    ['a doctor, a sander and the wheels', 'Docker Sanders Wheeler'],
    ['the vene version of Kemprantice', 'Kubernetes'],
    ['open. Source, git. Hub', 'OpenSource GitHub'],
    // Words of the language, and names.
    ['a string, a shift, a stack, the scale and the flash', 'Spring Swift Slack Scala Flask'],
    ['faster contacts have no effect on Steven', 'Foster Contract Affect Stephen'],
    ['reply today and open the can of worms', 'Replit Canof'],
    ["a swift reply, slacker's springs, the rabbit in", 'Swift Slack Spring RabbitMQ'],
    ['a sauna, the red is, we chat, one drive after another', 'Asana Redis WeChat OneDrive'],
    ['the power point of it, to get hub caps, refastened', 'PowerPoint GitHub Refastend'],
    ['anything', ''],
    ['', 'Docker'],
];

test('Terms replace what nearly is one, and no word of the language', () => {
    for (const [heard, terms, expected = heard] of rows)
        assert.equal(correctTerms(heard, terms.split(' '), language), expected);
});

test('What is left when the time is up stays as it is', () => {
    const answers = [false, false, true];
    const text = correctTerms('docker, git hub, docker', ['Docker', 'GitHub'], language, () =>
        answers.shift(),
    );
    assert.equal(text, 'Docker, GitHub, docker');
});

test('A full dictionary is bounded work, and none of this process', async (context) => {
    const model = readModel(`${modelsFolder()}/moonshine-tiny-en`);
    const worker = new RecognitionWorker(engineFolder(), engineOptions(model, 'auto'));
    context.after(() => worker.stop());
    const letters = 'abcdefghij';
    const terms = Array.from(
        { length: 1000 },
        (_, index) => `pro${String(index).replace(/\d/g, (digit) => letters[digit])}duction`,
    );
    const transcript = `prodaction of prodoctian by bluff `.repeat(10_000);
    const before = process.cpuUsage();
    assert.match(await worker.correct(transcript, terms), /^pro.*bluff $/);
    const { user, system } = process.cpuUsage(before);
    assert.ok(user + system < 1e6, `${user + system} microseconds`);
});
