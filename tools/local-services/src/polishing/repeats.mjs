// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { carriesOn } from './clauses.mjs';
import { alone } from './plain-words.mjs';
import { auxiliaries } from './words/auxiliaries.mjs';
import { asides, leadingAcrossComma } from './words/leading-words.mjs';
import { openingWords } from './words/opening-words.mjs';
import { prepositions } from './words/prepositions.mjs';
import { negations, questionWords } from './words/refused-words.mjs';

const longestPhrase = 4;
const plainWord = new RegExp(alone("\\p{sc=Latin}[\\p{sc=Latin}'’]*"), 'gu');
const clauseStart = /(?:^|[,.;:!?…，。；：！？、“(（]\s*|\s")$/u;

/** The plain words, each with its key for comparing and what stands before it. */
function wordsOf(text) {
    let end = 0;
    const words = [...text.matchAll(plainWord)].map((match) => {
        const before = text.slice(end, match.index);
        end = match.index + match[0].length;
        const key = match[0].toLowerCase().replaceAll('’', "'");
        return { text: match[0], key, before, opens: clauseStart.test(before) };
    });
    return { words, tail: text.slice(end) };
}

const isName = ({ text }) => /^\p{Lu}/u.test(text) && !/^I(?:['’]|$)/.test(text);

/** Whether one word is said again by someone who looks for the next one. */
function isWordAgain(word, previous, hasComma, follow) {
    if (asides.test(`${word.key} ${follow}`)) return false;
    // A letter before a letter spells something.
    if (word.key === 'a' && /^.(?![\p{L}\p{N}])/u.test(follow)) return false;
    if (hasComma && !leadingAcrossComma.has(word.key)) return false;
    return (
        carriesOn(word.key, previous?.key, hasComma) ||
        (!hasComma && word.opens && openingWords.has(word.key))
    );
}

/** Whether a phrase is a start that was given up: it breaks off where a clause cannot end. */
function isStartAgain(phrase, follow) {
    const isRefused = ({ key }) =>
        questionWords.has(key) || negations.has(key) || key.endsWith("n't");
    if (phrase.some(isRefused)) return false;
    // more and more and more
    if (follow.toLowerCase().match(/^[\p{L}'’]*/u)[0] === phrase[0].key) return false;
    const { key } = phrase.at(-1);
    const canEnd = auxiliaries.has(key) || prepositions.has(key);
    return canEnd ? phrase[0].opens : carriesOn(key, phrase.at(-2).key, false);
}

/** Whether a phrase is said again right behind itself, and only one of the two was meant. */
function isAgain(phrase, second, previous, follow) {
    if (phrase.some(({ key }, index) => key !== second[index]?.key)) return false;
    const inner = [...phrase.slice(1), ...second.slice(1)];
    if (inner.some(({ before }) => before !== ' ')) return false;
    if (second.some(isName) || !/^[\p{L}\p{N}]/u.test(follow)) return false;
    const hasComma = second[0].before === ', ';
    if (phrase.length === 1 && (hasComma || second[0].before === ' '))
        return isWordAgain(phrase[0], previous, hasComma, follow);
    return second[0].before === ' ' && phrase.length > 1 && isStartAgain(phrase, follow);
}

/**
 * Leaves one of several equal words or phrases in a row, where the first can only have been a start
 * that was given up. All others can be meant, and stay.
 *
 * @param {string} text in one line
 */
export function removeRepeats(text) {
    const { words, tail } = wordsOf(text);
    const kept = []; // from the last to the first
    const ahead = (from, count) => kept.slice(-from - count, -from || undefined).reverse();
    for (let at = words.length - 1; at >= 0; --at) {
        kept.push(words[at]);
        for (let size = Math.min(longestPhrase, kept.length >> 1); size > 0; --size) {
            const behind = kept.length > 2 * size ? ahead(2 * size, 2) : [];
            const follow = behind.map((word) => word.before + word.text).join('') || tail;
            if (isAgain(ahead(0, size), ahead(size, size), words[at - 1], follow.replace(/^ /, '')))
                kept.splice(-2 * size, size);
        }
    }
    return kept.reduceRight((all, { before, text: word }) => all + before + word, '') + tail;
}
