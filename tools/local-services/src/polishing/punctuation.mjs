// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { isChinese } from './scripts.mjs';

const wide = { ',': '，', '.': '。', '?': '？', '!': '！', ':': '：', ';': '；' };
const narrow = Object.fromEntries(Object.entries(wide).map(([from, to]) => [to, from]));
narrow['、'] = ',';

// Between letters or digits a mark belongs to a number, an address or a time.
const halfMarks = /\s*(?<![\p{sc=Latin}\p{N}](?=[.,:][\p{sc=Latin}\p{N}]))(\.{3,}|[,.?!:;])\s*/gu;

/** The marks of one sentence, as its language writes them. */
function marks(sentence) {
    if (isChinese(sentence))
        return sentence
            .replace(halfMarks, (all, mark) => (mark.length > 1 ? '……' : wide[mark]))
            .replace(/\s+(?=[，。？！：；、])/gu, '');
    return sentence
        .replace(/\s*([，。？！：；、])\s*/gu, (all, mark) => `${narrow[mark]} `)
        .replace(/\s+(?=[,.?!:;](?:\s|$))/gu, '');
}

/** A blank between Han and Latin letters or digits, and none between Han characters. */
const spacing = (text) =>
    text
        .replace(/(?<=\p{sc=Han})\s+(?=\p{sc=Han})/gu, '')
        .replace(
            /(?<=\p{sc=Han})(?=[\p{sc=Latin}\p{N}])|(?<=[\p{sc=Latin}\p{N}%])(?=\p{sc=Han})/gu,
            ' ',
        )
        .replace(/ {2,}/g, ' ');

const ending = /[.!?。！？…：:;；"”’)）]$/u;

// At the beginning; iPhone, addresses and names of files are no plain words.
const plainWord = /^["“(]?\p{Ll}[\p{Ll}'’]*(?=(?:-[\p{Ll}'’]+)*[,;:.!?)"”…]*(?:\s|$))/u;

function capitals(sentence) {
    const withI = sentence.replace(
        /(?<![\p{L}\p{N}.'’-])i(?=['’](?:m|ll|ve|d)\b|[\s,.?!]|$)/gu,
        'I',
    );
    return withI.replace(plainWord, (word) =>
        word.replace(/\p{Ll}/u, (letter) => letter.toUpperCase()),
    );
}

function finished(sentence) {
    const trimmed = spacing(marks(sentence))
        .trim()
        .replace(/[,，、]$/u, '');
    if (isChinese(trimmed)) return ending.test(trimmed) ? trimmed : `${trimmed}。`;
    const written = capitals(trimmed);
    return ending.test(written) || !/[\p{L}\p{N}]/u.test(written) ? written : `${written}.`;
}

const abbreviation = /(?:^|[\s(])(?:Mr|Mrs|Ms|Dr|Prof|St|vs|etc|e\.g|i\.e|\p{Lu})\.$/u;

/** Sentences as the marks part them; a point only before a blank, and not after an abbreviation. */
function sentencesOf(text) {
    const parts = text.match(/.+?(?:[。！？!?]+["”’)）]*|\.+["”’)）]*(?=\s|$)|$)/gsu) ?? [];
    const sentences = [];
    let open = '';
    for (const part of parts) {
        open += part;
        if (abbreviation.test(part.slice(-8))) continue;
        sentences.push(open);
        open = '';
    }
    sentences.push(open);
    return sentences.map((sentence) => sentence.trim()).filter(Boolean);
}

/**
 * Sentences with capitals, full stops, spaces and marks as their language writes them.
 *
 * @param {string} text in one line
 * @returns {string[]}
 */
export const punctuate = (text) => sentencesOf(text).map(finished).filter(Boolean);
