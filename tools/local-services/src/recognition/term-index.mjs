// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { editDistance, soundOf } from './spelling-distance.mjs';
import { termForm } from './word-forms.mjs';

// Terms of more words are sentences, which are not looked for.
const mostWords = 8;
// The fewest letters with which a word can be told from another that only resembles it.
const fewestLetters = 5;
const fewestSounds = 3;

/** The most letters in which a word of so many may differ from a term. */
const allowedEdits = (length) =>
    length < fewestLetters ? 0 : length < 8 ? 1 : length < 12 ? 2 : 3;

/** The most when both sound alike: few when they are short. */
const allowedSpellings = (sound, length) =>
    sound.length < fewestSounds ? 0 : sound.length === fewestSounds ? 2 : Math.floor(0.6 * length);

/** How many letters the heard differs in from a term that it resembles; nothing else it does not. */
function resemblance(heard, term) {
    const least = Math.min(heard.letters.length, term.letters.length);
    const most = Math.max(heard.letters.length, term.letters.length);
    const edits =
        heard.sound === term.sound ? allowedSpellings(heard.sound, most) : allowedEdits(least);
    if (least < fewestLetters || most - least > edits || heard.stem === term.stem) return undefined;
    const distance = editDistance(heard.letters, term.letters);
    return distance <= edits ? distance : undefined;
}

/** Groups what a function gives the same key. */
function grouped(terms, keyOf) {
    const groups = new Map();
    for (const term of terms) {
        const key = keyOf(term);
        if (groups.has(key)) groups.get(key).push(term);
        else groups.set(key, [term]);
    }
    return groups;
}

const soundsOf = (words) => words.map(soundOf).join(' ');

/** Finds terms without looking at each of them. */
export class TermIndex {
    #byLetters;
    #byParts;
    #byFirstSound;

    /** The most words that a term has. */
    mostWords;

    /** @param {string[]} terms */
    constructor(terms) {
        const forms = terms
            .map((term) => termForm(term.trim()))
            .filter(({ letters, words }) => letters && words.length <= mostWords);
        const latin = forms.filter(({ isLatin }) => isLatin);
        this.mostWords = Math.max(0, ...forms.map(({ words }) => words.length));
        this.#byLetters = new Map(forms.map((form) => [form.letters, form]).reverse());
        this.#byParts = grouped(latin, ({ parts }) => soundsOf(parts));
        this.#byFirstSound = grouped(latin, ({ sound }) => sound[0]);
    }

    /** The term of just these letters and digits, if any. */
    withLetters(letters) {
        return this.#byLetters.get(letters);
    }

    /** Terms whose parts sound as these words, one by one. */
    withParts(words) {
        return this.#byParts.get(soundsOf(words)) ?? [];
    }

    /** Terms spelt or sounding nearly as heard, as { term, distance }, the nearest first. */
    resembling(heard) {
        return (this.#byFirstSound.get(heard.sound[0]) ?? [])
            .map((term) => ({ term, distance: resemblance(heard, term) }))
            .filter(({ distance }) => distance !== undefined)
            .sort((a, b) => a.distance - b.distance);
    }
}
