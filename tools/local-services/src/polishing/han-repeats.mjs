// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { hanLeadingWords } from './words/leading-words.mjs';
import { hanOpeningWords } from './words/opening-words.mjs';
import { hanRefused } from './words/refused-words.mjs';

const more = '(?=[\\p{L}\\p{N}])';
const clauseStart = `(?<=(?:^|[，。！？；：、,.!?;:…“‘「（(]|${hanLeadingWords})\\s*)`;

const leadingAgain = new RegExp(`(${hanLeadingWords})(?:[，,、]?\\s?\\1)+${more}`, 'gu');
const openingAgain = new RegExp(`${clauseStart}(${hanOpeningWords})(?: ?\\1)+${more}`, 'gu');
const iAgain = new RegExp(`${clauseStart}我(?:[，,、]\\s?我)+${more}`, 'gu');
// Two characters twice can be a word: 研究研究.
const phraseAgain = new RegExp(`${clauseStart}(\\p{sc=Han}{3,10})(?: ?\\1)+${more}`, 'gu');

/** 滴答滴答 */
const isRhythm = (phrase) => /^(.+)\1+$/u.test(phrase);

/**
 * Leaves one of several equal Chinese words or phrases in a row, as `removeRepeats` does.
 *
 * @param {string} text in one line
 */
export const removeHanRepeats = (text) =>
    text
        .replace(leadingAgain, '$1')
        .replace(openingAgain, '$1')
        .replace(iAgain, '我')
        .replace(phraseAgain, (all, phrase) =>
            hanRefused.test(phrase) || isRhythm(phrase) ? all : phrase,
        );
