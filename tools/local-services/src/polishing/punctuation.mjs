// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { alone } from './plain-words.mjs';
import { isChinese } from './scripts.mjs';
import { sentencesOf } from './sentences.mjs';
import { spaced } from './spacing.mjs';
import { abbreviated, pointed } from './words/abbreviations.mjs';

const wide = { ',': '，', '.': '。', '?': '？', '!': '！', ':': '：', ';': '；' };
const narrow = Object.fromEntries(Object.entries(wide).map(([from, to]) => [to, from]));
narrow['、'] = ',';

// Marks that belong to no number, time, address or name of a file.
const halfMarks = /\s*(\.{3,}|(?<![!-~](?=[,.?!:;][!-~]))(?!\.[\p{sc=Latin}\p{N}])[,.?!:;])\s*/gu;

function widened(all, mark, offset, sentence) {
    const head = sentence.slice(Math.max(0, offset - 8), offset + 1);
    const isLast = offset + all.length === sentence.length;
    if (pointed.test(head) || (abbreviated.test(head) && !isLast)) return all;
    return mark.length > 1 ? '……' : wide[mark];
}

/** The marks of one sentence, as its language writes them. */
function marks(sentence) {
    if (isChinese(sentence))
        return sentence.replace(halfMarks, widened).replace(/\s+(?=[，。？！：；、])/gu, '');
    return sentence
        .replace(
            /\s*([，。？！：；、])\s*(["”’)）]?)/gu,
            (all, mark, close) => `${narrow[mark]}${close} `,
        )
        .replace(/\s+(?=[,.?!:;](?:\s|$))/gu, '');
}

const ending = /[.!?。！？…：:;；"”’)）]$/u;
const address = /^\S*[^\s\p{P}][/\\@.:_]+[^\s\p{P}]\S*$/u;

// At the beginning; iPhone, addresses and names of files are no plain words.
const plainStart = /^["“(]?\p{Ll}[\p{Ll}'’]*(?=(?:-[\p{Ll}'’]+)*[,;:.!?)"”…]*(?:\s|$))/u;
const smallI = new RegExp(alone("i(?:['’](?:m|ll|ve|d))?"), 'gu');

const raised = (word) => word.replace(/\p{Ll}/u, (letter) => letter.toUpperCase());
const capitals = (sentence) => sentence.replace(smallI, raised).replace(plainStart, raised);

function finished(sentence) {
    const trimmed = spaced(marks(sentence))
        .trim()
        .replace(/[,，、]$/u, '');
    if (isChinese(trimmed))
        return ending.test(trimmed) ? trimmed : trimmed + (/吗$/u.test(trimmed) ? '？' : '。');
    const written = capitals(trimmed);
    const isOpen = /[\p{L}\p{N}]/u.test(written) && !ending.test(written);
    return isOpen && !address.test(written) ? `${written}.` : written;
}

/**
 * Sentences with capitals, full stops, spaces and marks as their language writes them.
 *
 * @param {string} text in one line
 * @returns {string[]}
 */
export const punctuate = (text) => sentencesOf(text).map(finished).filter(Boolean);
