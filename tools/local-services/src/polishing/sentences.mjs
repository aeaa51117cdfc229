// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { abbreviated, pointed } from './words/abbreviations.mjs';

// Not within an address: behind a mark of half width there is a blank, or Chinese begins.
const wideMark = '(?:[。！？]|(?<=\\p{sc=Han})[!?])[。！？!?]*';
const halfMark = '[.!?]+(?=["”’)）]*(?:\\s|$)|[“（]?\\p{sc=Han})';
const end = new RegExp(`(?:${wideMark}|${halfMark})["”’)）]*`, 'gu');

/** Whether the sentence goes on: behind an abbreviation, points of silence, or what is quoted. */
function goesOn(text, mark, index) {
    const head = text.slice(Math.max(0, index - 8), index + mark.length);
    const behind = text.slice(index + mark.length, index + mark.length + 3);
    if (pointed.test(head) || (abbreviated.test(head) && !/\p{sc=Han}/u.test(behind))) return true;
    if (/^(?:\.{2,}|.*["”’)）])$/u.test(mark) && /^ ?\p{Ll}/u.test(behind)) return true;
    return /["”’)）]$/u.test(mark) && /^ ?\p{sc=Han}/u.test(behind);
}

/**
 * A text's sentences, as its marks part them.
 *
 * @param {string} text in one line
 * @returns {string[]} without blanks around them
 */
export function sentencesOf(text) {
    const sentences = [];
    let start = 0;
    for (const { 0: mark, index } of text.matchAll(end)) {
        if (goesOn(text, mark, index)) continue;
        sentences.push(text.slice(start, index + mark.length));
        start = index + mark.length;
    }
    sentences.push(text.slice(start));
    return sentences.map((sentence) => sentence.trim()).filter(Boolean);
}
