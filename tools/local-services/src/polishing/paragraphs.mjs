// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { builtInPrompt } from './built-in-prompts.mjs';

/** A straight quote at the beginning opens, and so wants the blank. */
const isTight = (last, next) => /[。！？…”）]$/u.test(last) && !next.startsWith('"');

/** Sentences in one paragraph, with blanks where the marks bring no space of their own. */
const run = (sentences) =>
    sentences
        .map((sentence, index) =>
            index === 0 || isTight(sentences[index - 1], sentence) ? sentence : ` ${sentence}`,
        )
        .join('');

// What begins a new step of a train of thought.
const step = new RegExp(
    '^(?:首先|其次|再次|然后|接着|最后|另外|此外|总之|所以|因此|但是|不过|第[一二三四五六七八九十]|' +
        '(?:First(?:ly)?|Second(?:ly)?|Third(?:ly)?|Next|Then|Finally|Also|However|But|So|Therefore|' +
        'In addition|In the end)\\b)',
    'u',
);

const grouped = (sentences, isFirst) => {
    const groups = [];
    sentences.forEach((sentence, index) => {
        if (!groups.length || isFirst(sentence, index)) groups.push([]);
        groups.at(-1).push(sentence);
    });
    return groups.map(run);
};

const lines = (sentences) => sentences.join('\n');
const pairs = (sentences) => grouped(sentences, (_, index) => index % 2 === 0).join('\n\n');
const steps = (sentences) => grouped(sentences, (sentence) => step.test(sentence)).join('\n\n');

// Everyday text, a script to be spoken, and a structured report.
const byPrompt = new Map([
    [builtInPrompt('builtin.clean'), lines],
    [builtInPrompt('builtin.script'), pairs],
    [builtInPrompt('builtin.structured'), steps],
]);

/**
 * How sentences are put together for a system message: for the application's own prompts a sentence
 * a line, pairs of sentences, or a paragraph a step; for any other one paragraph.
 *
 * @param {string} prompt
 * @returns {function(string[]): string}
 */
export function paragraphing(prompt) {
    return byPrompt.get(prompt) ?? run;
}
