// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { splitAtPaths } from './plain-words.mjs';

const withinHan = /(?<=\p{sc=Han})\s+(?=\p{sc=Han})/gu;
// The number in the name of a file (报告2.docx) stays where it is.
const hanThenLatin = /(?<=\p{sc=Han})(?!\p{N}+\.\p{L})(?=[\p{sc=Latin}\p{N}])/gu;
const latinThenHan = /(?<=[\p{sc=Latin}\p{N}%])(?=\p{sc=Han})/gu;

const spacedWords = (text) =>
    text
        .replace(withinHan, '')
        .replace(hanThenLatin, ' ')
        .replace(latinThenHan, ' ')
        .replace(/ {2,}/g, ' ');

/**
 * A blank between Han and Latin letters or digits, and none between Han characters; paths stay.
 *
 * @param {string} text in one line
 */
export const spaced = (text) =>
    splitAtPaths(text)
        .map((part, index) => (index % 2 ? part : spacedWords(part)))
        .join('');
