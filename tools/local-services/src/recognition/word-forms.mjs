// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { soundOf } from './spelling-distance.mjs';

/** Latin words and numbers with what may be inside them, and runs of letters of other scripts. */
export const wordPattern =
    /[\p{sc=Latin}\p{N}]+(?:['’+#._-]+[\p{sc=Latin}\p{N}]+)*[+#]*|(?:(?!\p{sc=Latin})\p{L})+/gu;

const partPattern = /\p{Lu}+(?!\p{Ll})|\p{Lu}?\p{Ll}+|\p{N}+/gu;

/** Letters and digits in lower case: what two spellings of one term have in common. */
export const core = (text) => text.toLowerCase().replace(/[^\p{L}\p{N}+#]/gu, '');

/** What "docked" and "docker" have in common: two words, not one misspelt. */
const stemOf = (letters) => letters.replace(/(ers?|ed|ing|es|s|ly)$/, '');

/**
 * The spelling and the sound of a term, or of neighbouring words that may mean one.
 *
 * @param {string[]} words
 */
export function formOf(words) {
    const letters = core(words.join(''));
    return {
        words,
        letters,
        isLatin: /^[a-z0-9+#]+$/.test(letters),
        stem: stemOf(letters),
        sound: soundOf(letters),
    };
}

/** Parts in lower case, as blanks and capitals divide a term: "git hub" of "GitHub". */
export const partsOf = (text) => (text.match(partPattern) ?? []).map((part) => part.toLowerCase());

/** The form of a term, with its parts. */
export const termForm = (text) => ({
    ...formOf(text.match(wordPattern) ?? []),
    text,
    parts: partsOf(text),
});
