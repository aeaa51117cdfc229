// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

// Parts of regular expressions.

/** Sounds that mean nothing; "uh-huh" and "uh oh" are words, and capitals an abbreviation. */
export const hesitations = '[Uu]m+|[Uu]hm*(?![ -](?:huh|oh)\\b)|[Ee]rm?';
/** Sounds that mean nothing unless they are a whole sentence, and so an answer. */
export const answers = '[Hh]m+|[Mm]mm+';

export const hanHesitations = '呃+';
/** 嗯嗯 and 嗯哼 are always an answer. */
export const hanAnswers = '(?<!嗯)嗯(?!嗯|哼)';
/** Parts of words, or of the sentence before, unless nothing touches them. */
export const hanAnswersSetOff =
    '(?<=^|[，,、。！？.!?…]\\s*|\\p{sc=Han}\\s)[额啊诶欸唔](?=[\\s，,、…]|$)';

/** Behind these a sound is what the sentence is about: 他说嗯, the word um. */
export const mentioning =
    /(?:\b(?:words?|say|says|said|saying|sounds?|called) |[说声句回答喊道字]|(?<![这那哪几])个)$/u;
/** Before these it is a verb or part of a word: 嗯了一声, 呃逆. */
export const verbEndings = /^(?:[了着逆声]|[一的地]声|[的地]一声)/u;

/** Politeness that 那个 leads up to; it does not stand for their object. */
export const hanRequests =
    '请问|麻烦|不好意思|能不能|可不可以|你能|你可以|我想(?:问|说|请|跟|和|要[这那一两几])';
/** Fillers where commas set them off. */
export const hanPhrases = '怎么说呢|就是说';
