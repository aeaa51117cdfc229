// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// Some models invent words for speech of a language that they do not know. They invent others when
// the same speech is a little higher or lower, while what they understand stays as it is.

import { editDistance } from './spelling-distance.mjs';

// The voices of somebody else, as parts of the true pitch and speed.
const otherPitches = [1.08, 0.93, 1.04, 0.96];
// In parts of the letters. In noise English may be invented at one pitch and right at the next; when
// nothing was heard at first, most of what is heard is invented.
const mostDifference = 0.5;
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
    const differenceAt = async (pitch) => difference(text, await heardAt(pitch));
    if (isSecondTry) {
        const [higher, lower] = otherPitches;
        return ((await differenceAt(higher)) + (await differenceAt(lower))) / 2 <= mostOfSecondTry;
    }
    for (const pitch of otherPitches)
        if ((await differenceAt(pitch)) <= mostDifference) return true;
    return false;
}

/** Whether a text has letters that no language of a model is written with. */
export const isForeign = (text, languages) =>
    languages.join() === 'en' && /(?!\p{sc=Latin})\p{L}/u.test(text);
