// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

// Nothing of a word before and behind.
const alone = (words) => `(?<![\\p{sc=Latin}\\p{N}'’-])(?:${words})(?![\\p{sc=Latin}\\p{N}'’-])`;

// Sounds that are no words. "uh-huh" and "uh oh" are; capitals are an abbreviation.
const sounds = alone('[Uu]m+|[Uu]hm*(?![ -](?:huh|oh)\\b)|[Ee]rm?|[Hh]m+|[Mm]mm+');
// 嗯嗯 means yes, the other two are part of words.
const hanSounds = '(?<!嗯)嗯(?!嗯|哼)|呃+';
const hanSoundsSetOff = '(?<![\\p{L}\\p{N}])[额啊诶欸唔](?=[\\s，,、。.…]|$)';
// Words that mean something unless commas or pauses set them off.
const phrases = '[Yy]ou know|I mean';
const hanPhrases = '那个|这个|就是说?|怎么说呢?|然后呢';

const before = '([,，、]?\\s*)';
const behind = '(\\s*[,，、…]*\\s*)';

const anywhere = new RegExp(
    `${before}(?:${sounds}|${hanSounds}|${hanSoundsSetOff})${behind}`,
    'gu',
);
const setOff = [
    new RegExp(`(^|[,.!?;]\\s*)(?:${phrases})(\\s*,\\s*)`, 'gu'),
    new RegExp(`(,\\s*)(?:${phrases})(\\s*)(?=[.!?]|$)`, 'gu'),
    new RegExp(`(^|[，,、。！？.!?]\\s*|\\s)(?:${hanPhrases})(\\s*[，,、…]+\\s*)`, 'gu'),
];

const clauseStart =
    /^(?:i|you|he|she|we|they|it|this|that|there|and|but|or|so|because|which|who|then|if|when)\b/i;

/** What is left where a filler was: a comma only where two clauses would run together. */
function seam(match, left, right, offset, whole) {
    const mark = left.match(/^[.!?;。！？]/u)?.[0] ?? ''; // the end of the sentence before
    // A few characters tell enough, however long the text.
    const head = (whole.slice(Math.max(0, offset - 4), offset) + mark).trimEnd();
    const rest = whole.slice(offset + match.length, offset + match.length + 12);
    if (!head || !rest || /^[,.!?;，。！？；]/u.test(rest)) return mark;
    if (/["“(（]$/u.test(head)) return mark;
    if (/[.!?;。！？]$/u.test(head)) return /[.!?;]$/.test(head) ? `${mark} ` : mark;
    const hadComma = /[,，、]/u.test(left + right);
    const isHan = /\p{sc=Han}$/u.test(head) || /^\p{sc=Han}/u.test(rest);
    if (isHan) return hadComma ? '，' : ' ';
    return hadComma && clauseStart.test(rest) ? ', ' : ' ';
}

/**
 * Takes out sounds of hesitation, and words that only fill a pause.
 *
 * @param {string} text in one line
 * @returns {string} perhaps empty
 */
export function removeFillers(text) {
    // A filler that is taken out can set off the next one.
    for (let last; last !== text;) {
        last = text;
        for (const pattern of [anywhere, ...setOff]) text = text.replace(pattern, seam);
    }
    // Quotes are left empty where only a filler was in them.
    return text.replace(/["“]["”][,，]?\s*/gu, '').trim();
}
