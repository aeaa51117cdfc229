// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { breaksOff } from './clauses.mjs';
import { alone } from './plain-words.mjs';
import { auxiliaries } from './words/auxiliaries.mjs';
import * as words from './words/filler-words.mjs';
import { prepositions } from './words/prepositions.mjs';
import { questionWords } from './words/refused-words.mjs';

// A filler has a comma of its own on either side, or none.
const before = '([,，、]?\\s*)';
const behind = '(\\s*[,，、…]*\\s*)';
const sentenceStart = '(?<=^|[.!?。！？]\\s*)';
const more = '(?=["“]?[\\p{L}\\p{N}])';

const hesitation = `(?:${alone(words.hesitations)}|${words.hanHesitations})`;
const wholeSentence = new RegExp(`${sentenceStart}${hesitation}(?:\\.+|。|…+)\\s*${more}`, 'gu');
const sound =
    `(?:${alone(`${words.hesitations}|${words.answers}`)}|${words.hanHesitations}|` +
    `${words.hanAnswers}|${words.hanAnswersSetOff})`;
const sounds = new RegExp(`${before}(${sound}(?:[\\s,，、…]*${sound})*)${behind}`, 'gu');
const questionWord = new RegExp(alone([...questionWords].join('|')), 'u');
const question = alone([...auxiliaries].join('|'));
// "I mean" corrects what was said before, where something was.
const opening = new RegExp(
    `(?:^I mean|${sentenceStart}[Yy]ou know)(?:, (?:you know|I mean))*, (?!${question})${more}|` +
        `${sentenceStart}那个(?:[，,、]\\s*(?=${words.hanRequests})|\\s*(?:…|\\.{3,})+\\s*${more})`,
    'gu',
);
const youKnow = new RegExp(`(,\\s*)you know(\\s*,\\s*${more}|(?=\\s*(?:[.!?]|$)))`, 'gu');
const hanPhrase = new RegExp(
    `(?<=^|[，,、。！？.!?]\\s*)(?:${words.hanPhrases})\\s*[，,、…]+\\s*${more}`,
    'gu',
);

/** What is around a match, as much of it as the rules look at. */
function surroundings(whole, offset, length) {
    const end = offset + length;
    return [whole.slice(Math.max(0, offset - 80), offset).trimEnd(), whole.slice(end, end + 20)];
}

/** What is left where a filler was; a comma stays unless the words beside it belong together. */
function seam(head, marks, rest) {
    if (!head || !rest || /^[,.!?;，。！？；]/u.test(rest) || /["“(（：。！？]$/u.test(head))
        return '';
    if (/[.!?;:…]$/u.test(head)) return ' ';
    const comma = marks.match(/[,，、]/u)?.[0];
    if (!comma) return ' ';
    if (comma !== ',') return comma;
    const [next] = rest.match(/^[\p{sc=Latin}'’]+/u) ?? [];
    return breaksOff(head) || prepositions.has(next) ? ' ' : ', ';
}

function withoutSound(match, left, said, right, offset, whole) {
    const [head, rest] = surroundings(whole, offset, match.length);
    const isSentence = /(?:^|[.!?。！？])$/u.test(head) && /^(?:$|[.!?。！？])/u.test(rest);
    const isQuoted = /["“‘「（(—–-]$/u.test(head) && /^["”’」）)—–-]/u.test(rest);
    const mark = left.trim() || right.trim();
    const isMentioned = !left.trim() && words.mentioning.test(head + left);
    const isVerb = !mark && words.verbEndings.test(rest);
    return isSentence || isQuoted || isMentioned || isVerb ? match : seam(head, left + right, rest);
}

/** In "what he wants, you know" and "if you know, you know" it is meant. */
function withoutYouKnow(match, left, right, offset, whole) {
    const [head, rest] = surroundings(whole, offset, match.length);
    const clauses = head.toLowerCase().match(/[^.!?]*$/)[0];
    const isMeant = /\byou(?: know)?$/.test(clauses) || questionWord.test(clauses);
    return isMeant ? match : seam(head, left + right, rest);
}

/**
 * Takes out sounds of hesitation, and words that only fill a pause.
 *
 * @param {string} text in one line
 * @returns {string}
 */
export const removeFillers = (text) =>
    text
        .replace(wholeSentence, '')
        .replace(sounds, withoutSound)
        .replace(opening, '')
        .replace(youKnow, withoutYouKnow)
        .replace(hanPhrase, '')
        .trim();
