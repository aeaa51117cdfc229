// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { determiners, functionWords, namingWords } from './function-words.mjs';
import { editDistance } from './spelling-distance.mjs';
import { TermIndex } from './term-index.mjs';
import { formOf, wordPattern } from './word-forms.mjs';

// How many more words than the term has may be heard for it.
const mostSplits = 2;
// So many words in a row are a term by themselves, whatever words they are.
const phraseWords = 3;
// The fewest sounds by which words of the language can be told from what they sound like.
const fewestSounds = 4;
const endings = ["'s", '’s', 's', 'es', 'ed', 'ing', 'er', 'ers', 'ly'];

const isFunctionWord = (word) => functionWords.has(word.toLowerCase());
const hasCapital = (word) => /^\p{Lu}/u.test(word);
const isOtherScript = (word) => word !== undefined && !/^[\p{sc=Latin}\p{N}]/u.test(word);

/** Whether what surrounds it makes a name of what may be an ordinary word. */
function isNamed({ before, after, isTightBefore, isTightAfter }) {
    if ((isTightBefore && isOtherScript(before)) || (isTightAfter && isOtherScript(after)))
        return true;
    const ends = after === undefined || !isTightAfter || isFunctionWord(after);
    return isTightBefore && namingWords.has(before?.toLowerCase()) && ends;
}

/** A word of a term's very letters: whether it means the term, and is not just that word. */
function meansTermAlone(word, context, language) {
    if (isFunctionWord(word)) return false;
    return (
        !language.isOrdinary(word) ||
        (hasCapital(word) && !context.beginsSentence) ||
        isNamed(context)
    );
}

/** Words whose letters together are a term's: whether they mean it. */
function meanTermTogether(heard, term, context, language) {
    const { words } = heard;
    if (!heard.isLatin || context.isHyphened) return true;
    const isDividedAlike = words.join(' ').toLowerCase() === term.parts.join(' ');
    const hasFunctionWord = words.some(isFunctionWord);
    if (words.some((word) => !language.isOrdinary(word) && !isFunctionWord(word)))
        return !hasFunctionWord || isDividedAlike;
    if (isDividedAlike && words.length >= phraseWords) return true;
    if (hasFunctionWord) return isDividedAlike && isAfterPreposition(context);
    return isDividedAlike ? !isAfterDeterminer(context) : isNamed(context);
}

const isAfterDeterminer = ({ before, isTightBefore }) =>
    isTightBefore && determiners.has(before?.toLowerCase());

/** "on you tube yesterday", but not "later on we chat about it". */
const isAfterPreposition = ({ before, after, isTightBefore, isTightAfter }) =>
    isTightBefore &&
    ['on', 'via', 'from'].includes(before?.toLowerCase()) &&
    !(isTightAfter && after !== undefined && isFunctionWord(after));

/** A term with the ending that it was heard with: "dockers" for "Docker". */
function withEnding(heard, index, context, language) {
    if (heard.words.length > 1) return undefined;
    const [word] = heard.words;
    for (const ending of endings.filter((each) => word.toLowerCase().endsWith(each))) {
        const base = word.slice(0, -ending.length);
        const term = index.withLetters(formOf([base]).letters);
        const isMeant = /s$/.test(ending) ? !language.isOrdinary(word) : !language.isWord(word);
        if (term && isMeant && meansTermAlone(base, context, language))
            return term.text + word.slice(-ending.length);
    }
    return undefined;
}

/** The term that some words of the language sound like, part by part: "pie torch" for PyTorch. */
function soundingAlike({ words }, index, context) {
    if (words.length < 2 || words.some(isFunctionWord) || isAfterDeterminer(context))
        return undefined;
    const spelt = words.map((word) => word.toLowerCase());
    return index
        .withParts(spelt)
        .find(({ parts }) => parts.some((part, at) => part.length > 2 && part === spelt[at]))?.text;
}

/** Whether words cannot be what was said: one is unknown, or but a rare one beside the same sound. */
function isMisheard({ words, sound }, term, language) {
    const soundsAlike = sound === term.sound && sound.length >= fewestSounds;
    const isMeantAsItIs = words.length > 1 && soundsAlike ? language.isOrdinary : language.isWord;
    return !words.every(isMeantAsItIs);
}

/** The term that some words resemble which are not all words of the language. */
function resembling(heard, index, language) {
    const { words } = heard;
    if (words.some(isFunctionWord) || words.every(language.isOrdinary)) return undefined;
    return index
        .resembling(heard)
        .find(
            ({ term, distance }) =>
                words.length <= term.words.length + mostSplits &&
                isMisheard(heard, term, language) &&
                !hasTooMany(words, term, distance),
        )?.term.text;
}

/** Whether the term is spelt as much like the words without the first or the last of them. */
const hasTooMany = (words, term, distance) =>
    words.length > 1 &&
    [words.slice(1), words.slice(0, -1)].some(
        (fewer) => editDistance(formOf(fewer).letters, term.letters) <= distance,
    );

/** What to write for some neighbouring words: a term, or nothing when they mean what they say. */
function corrected(words, index, context, language) {
    const heard = formOf(words);
    const same = index.withLetters(heard.letters);
    if (same) {
        const isMeant =
            words.length === 1
                ? meansTermAlone(words[0], context, language)
                : meanTermTogether(heard, same, context, language);
        return isMeant ? same.text : undefined;
    }
    if (!heard.isLatin) return undefined;
    return (
        withEnding(heard, index, context, language) ??
        soundingAlike(heard, index, context) ??
        resembling(heard, index, language)
    );
}

/** Words with what stands between each and the next. */
function wordsOf(transcript) {
    const matches = [...transcript.matchAll(wordPattern)];
    return matches.map(({ 0: text, index }, at) => {
        const end = index + text.length;
        return { text, begin: index, end, gap: transcript.slice(end, matches[at + 1]?.index) };
    });
}

const isTight = ({ gap }) => /^[ \u00a0-]?$/.test(gap);

/** The most words from a position on that nothing but a blank or a hyphen keeps apart. */
function neighbours(words, first, most) {
    let count = 1;
    while (count < most && first + count < words.length && isTight(words[first + count - 1]))
        ++count;
    return words.slice(first, first + count);
}

/** What surrounds some of the words. */
function contextOf(words, first, count) {
    const [previous, last, next] = [
        words[first - 1],
        words[first + count - 1],
        words[first + count],
    ];
    return {
        before: previous?.text,
        after: next?.text,
        isTightBefore: previous !== undefined && isTight(previous),
        isTightAfter: next !== undefined && isTight(last),
        isHyphened: count > 1 && words[first].gap === '-',
        beginsSentence: !previous || /[.!?。！？\n]/.test(previous.gap),
    };
}

/**
 * Puts the user's terms where a transcript nearly has them: in other case, split or joined, or for
 * Latin letters misspelt a little or spelt as it sounds. A word of the language stays unless it is
 * spelt as the term and what surrounds it makes a name of it.
 *
 * @param {string} transcript
 * @param {string[]} terms
 * @param {object} language as `readLanguage` returns it
 * @param {function(): boolean} isTimeUp asked at each word; what follows stays as it is
 */
export function correctTerms(transcript, terms, language, isTimeUp = () => false) {
    const index = new TermIndex(terms);
    const words = wordsOf(transcript);
    let result = '';
    let at = 0;
    for (let first = 0; first < words.length && !isTimeUp();) {
        const group = neighbours(words, first, index.mostWords + mostSplits);
        let text;
        for (; group.length > 0 && text === undefined; group.pop())
            text = corrected(
                group.map((word) => word.text),
                index,
                contextOf(words, first, group.length),
                language,
            );
        const taken = text === undefined ? 1 : group.length + 1;
        result += transcript.slice(at, words[first].begin) + (text ?? words[first].text);
        at = words[first + taken - 1].end;
        first += taken;
    }
    return result + transcript.slice(at);
}
