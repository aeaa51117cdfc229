// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// Some models invent words for speech of a language that they do not know. They invent others when
// the same speech is a little higher or lower, while what they understand stays as it is.

import { editDistance } from './spelling-distance.mjs';

// Faster and higher, slower and lower: the voice of somebody else.
const otherPitches = [1.08, 0.93];
// In parts of the letters. English differs in up to 0.31, and hardly ever in so little as the other
// when nothing was heard at first.
const mostDifference = 0.4;
const mostOfSecondTry = 0.2;
// Of less nothing can be told.
const fewestLetters = 12;

const repeatedPhrase = /(\p{L}[\p{L}' ]{12,})[.,!? ]+\1|(\p{L}{1,4})\2{4}/iu;

const lettersOf = (text) => text.toLowerCase().replace(/[^\p{L}\p{N}]/gu, '');

function difference(text, other) {
    const [a, b] = [text, other].map(lettersOf);
    return editDistance(a, b) / Math.max(a.length, b.length);
}

/**
 * Whether the same is heard in another voice.
 *
 * @param {string} text what was heard
 * @param {boolean} isSecondTry whether nothing was heard at first
 * @param {function(number): Promise<string>} heardAt what is heard at so many times the pitch
 * @returns {Promise<boolean|undefined>} nothing when the text is too short to tell
 */
export async function isHeardAgain(text, isSecondTry, heardAt) {
    if (isSecondTry && repeatedPhrase.test(text)) return false;
    if (lettersOf(text).length < fewestLetters) return undefined;
    const most = isSecondTry ? mostOfSecondTry : mostDifference;
    const first = difference(text, await heardAt(otherPitches[0]));
    if (first <= most / 2) return true;
    return (first + difference(text, await heardAt(otherPitches[1]))) / 2 <= most;
}

/** Whether a text has letters that no language of a model is written with. */
export const isForeign = (text, languages) =>
    languages.join() === 'en' && /(?!\p{sc=Latin})\p{L}/u.test(text);
