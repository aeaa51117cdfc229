// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

const words = (text) => new Set(text.split(' '));

// Said twice on purpose, or because the language wants it.
const meantTwice = words(
    'had that very really so no yes yeah bye ha never much many far long well ' +
        'again more thanks knock hear now there is',
);
const numbers = words(
    'zero oh one two three four five six seven eight nine ten eleven twelve ' +
        'thirteen fourteen fifteen sixteen seventeen eighteen nineteen twenty thirty forty fifty ' +
        'sixty seventy eighty ninety hundred thousand million point',
);
const edgeLeft = "(?<![\\p{sc=Latin}\\p{N}'’-])";
const edgeRight = "(?![\\p{sc=Latin}\\p{N}'’-])";
const word = "[\\p{sc=Latin}'’]+";

const twice = new RegExp(`${edgeLeft}(${word}(?: ${word}){0,3})(?:,? \\1)+${edgeRight}`, 'giu');

const hanSmall =
    '我们|你们|他们|她们|咱们|这个|那个|这些|那些|然后|因为|所以|但是|如果|就是|今天|明天|现在|' +
    '已经|应该|需要|还是|不是|[我你他她它这那就把]';
const hanSmallTwice = new RegExp(`(${hanSmall})(?:[，,、 ]?\\1)+`, 'gu');
// Two characters twice can be a word (研究研究); three are a new start, unless they count.
const hanPhraseTwice = /([\p{sc=Han}]{3,10})(?:[，,、 ]?\1)+/gu;
const hanNumber = /[零〇一二三四五六七八九十百千万亿两]/;

function isMeant(phrase) {
    const parts = phrase.toLowerCase().split(' ');
    const isSpelling = (part) => part.length === 1 && part !== 'i' && part !== 'a';
    return (
        (new Set(parts).size === 1 && meantTwice.has(parts[0])) ||
        parts.some((part) => numbers.has(part) || isSpelling(part))
    );
}

/** Whether it has a capital in the middle of a sentence. */
const isName = (phrase) => /(?:^| )(?!I\b)\p{Lu}/u.test(phrase);

const isKept = (all, phrase) =>
    isMeant(phrase) || (all.includes(',') && isName(all.slice(-phrase.length)));

/**
 * Leaves one of several equal words or phrases in a row, as they come from starting anew. What is
 * often meant, and numbers, stay.
 *
 * @param {string} text in one line
 */
export function removeRepeats(text) {
    return text
        .replace(twice, (all, phrase) => (isKept(all, phrase) ? all : phrase))
        .replace(hanSmallTwice, '$1')
        .replace(hanPhraseTwice, (all, phrase) =>
            hanNumber.test(phrase) || new Set(phrase).size === 1 ? all : phrase,
        );
}
