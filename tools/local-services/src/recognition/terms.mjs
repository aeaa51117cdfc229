// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { commonWords } from './common-words.mjs';
import { editDistance, soundOf } from './spelling-distance.mjs';

// Latin words and numbers with what may be inside them, and runs of letters of other scripts.
const wordPattern =
    /[\p{sc=Latin}\p{N}]+(?:['’+#._-]+[\p{sc=Latin}\p{N}]+)*[+#]*|(?:(?!\p{sc=Latin})\p{L})+/gu;
const endings = ["'s", '’s', 's', 'es', 'ed', 'ing', 'er', 'ers', 'ly'];
// The fewest letters with which a word can be told from another that only resembles it.
const fewestLetters = 5;
const fewestSounds = 4;
// How many more words than the term has may be heard for it.
const mostSplits = 2;
// Terms of more words are sentences, which are not looked for.
const mostWords = 8;

/** Letters and digits in lower case: what two spellings of one term have in common. */
const core = (text) => text.toLowerCase().replace(/[^\p{L}\p{N}+#]/gu, '');
const isLatin = (text) => /^[a-z0-9+#]+$/.test(text);

/** The most letters in which a word of so many may differ from a term. */
const allowedEdits = (length) =>
    length < fewestLetters ? 0 : length < 8 ? 1 : length < 12 ? 2 : 3;

/** What "docked" and "docker" have in common: two words, not one misspelt. */
const stemOf = (letters) => letters.replace(/(ers?|ed|ing|es|s|ly)$/, '');

/** The spelling and the sound of a term, or of neighbouring words that may mean one. */
function formOf(text, words) {
    const letters = core(text);
    return {
        text,
        words,
        letters,
        isLatin: isLatin(letters),
        stem: stemOf(letters),
        sound: soundOf(letters),
        isCommon: words.every((word) => commonWords.has(word.toLowerCase())),
    };
}

const termForm = (text) => formOf(text, text.match(wordPattern) ?? []);

function resembles(heard, term) {
    const [least, most] = [heard.letters.length, term.letters.length].sort((a, b) => a - b);
    if (least < fewestLetters || heard.stem === term.stem) return false;
    const allowed = heard.sound[0] === term.sound[0] ? allowedEdits(least) : 0;
    const isAlike = heard.sound === term.sound && term.sound.length >= fewestSounds;
    const edits = isAlike ? Math.floor(0.6 * most) : allowed;
    return edits >= most - least && editDistance(heard.letters, term.letters) <= edits;
}

/**
 * What stands for the heard words when they mean the term: the term, with the ending that it was
 * heard with. Nothing when they mean something else.
 */
function replacement(heard, term) {
    if (heard.letters === term.letters) return term.text;
    if (!heard.isLatin || !term.isLatin) return undefined;
    const last = heard.words.at(-1).toLowerCase();
    const ending =
        heard.letters.startsWith(term.letters) &&
        endings.find((each) => heard.letters === term.letters + core(each) && last.endsWith(each));
    if (ending) return term.text + heard.words.at(-1).slice(-ending.length);
    return !heard.isCommon && resembles(heard, term) ? term.text : undefined;
}

// "it" is hardly ever IT, and "go" hardly ever Go.
const isTooCommon = ({ text, isCommon }) => text.length <= 3 && isCommon;

const distance = (heard, term) => editDistance(heard.letters, term.letters);

/** Whether the words mean the term as well without the first or the last of them. */
function hasTooMany(heard, term) {
    const { words } = heard;
    if (words.length === 1) return false;
    return [words.slice(1), words.slice(0, -1)]
        .map((fewer) => formOf(fewer.join(' '), fewer))
        .some(
            (fewer) => replacement(fewer, term) && distance(fewer, term) <= distance(heard, term),
        );
}

/** What to write for some neighbouring words: the term that is spelt most like them, if any. */
function corrected(heard, terms) {
    if (isTooCommon(heard)) return undefined;
    const fits = terms
        .filter(({ words }) => heard.words.length <= words.length + mostSplits)
        .map((term) => ({ term, text: replacement(heard, term) }))
        .filter(({ text, term }) => text !== undefined && !hasTooMany(heard, term));
    return fits.sort((a, b) => distance(heard, a.term) - distance(heard, b.term))[0]?.text;
}

/** The most words from a position on that nothing but a blank or a hyphen keeps apart. */
function neighbours(transcript, words, first, most) {
    let count = 1;
    while (count < most && first + count < words.length) {
        const [before, next] = [words[first + count - 1], words[first + count]];
        if (!/^[ \u00a0-]?$/.test(transcript.slice(before.end, next.begin))) break;
        ++count;
    }
    return words.slice(first, first + count);
}

/**
 * Puts the user's terms where a transcript nearly has them: in other case, split or joined, or for
 * Latin letters misspelt a little or spelt as it sounds. Words far from every term stay.
 *
 * @param {string} transcript
 * @param {string[]} terms
 */
export function correctTerms(transcript, terms) {
    const known = terms
        .map((term) => termForm(term.trim()))
        .filter(({ letters, words }) => letters && words.length <= mostWords);
    const most = Math.max(0, ...known.map(({ words }) => words.length + mostSplits));
    const words = [...transcript.matchAll(wordPattern)].map(({ 0: text, index }) => ({
        text,
        begin: index,
        end: index + text.length,
    }));
    let result = '';
    let at = 0;
    for (let first = 0; first < words.length;) {
        const group = neighbours(transcript, words, first, most);
        let text;
        for (; group.length > 0; group.pop()) {
            const heard = group.map((word) => word.text);
            text = corrected(formOf(heard.join(' '), heard), known);
            if (text !== undefined) break;
        }
        const taken = Math.max(1, group.length);
        const { end } = words[first + taken - 1];
        result += transcript.slice(at, words[first].begin) + (text ?? words[first].text);
        at = end;
        first += taken;
    }
    return result + transcript.slice(at);
}
