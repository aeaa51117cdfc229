// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { editDistance } from '../../tools/local-services/src/recognition/spelling-distance.mjs';

const wordsOf = (text) => text.toLowerCase().match(/[a-z']+|\d+/g) ?? [];

/**
 * Word errors in percent: words put in, left out and replaced, of all that were spoken. Capitals and
 * marks do not count.
 *
 * @param {{text: string}[]} spoken
 * @param {string[]} heard in the same order
 */
export function wordErrorRate(spoken, heard) {
    const words = spoken.map(({ text }) => wordsOf(text));
    const errors = words.map((each, index) => editDistance(each, wordsOf(heard[index])));
    const sum = (numbers) => numbers.reduce((a, b) => a + b, 0);
    return (100 * sum(errors)) / sum(words.map(({ length }) => length));
}
