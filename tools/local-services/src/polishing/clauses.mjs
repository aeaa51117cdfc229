// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { auxiliaries } from './words/auxiliaries.mjs';
import {
    contractions,
    leadingAcrossComma,
    leadingWords,
    subjects,
} from './words/leading-words.mjs';

const comparing = new Set(['than', 'as', 'not']);
const joining = new Set(['and', 'or', 'but', 'nor']);

/**
 * Whether a clause cannot end with a word, so that what follows belongs to it.
 *
 * @param {string} word in lower case
 * @param {string} [previous] the one before it, in lower case
 * @param {boolean} hasComma whether a comma follows, as it may in "you and I, I think"
 */
export function carriesOn(word, previous, hasComma) {
    if (subjects.has(word))
        return !(
            auxiliaries.has(previous) ||
            comparing.has(previous) ||
            (hasComma && joining.has(previous))
        );
    return leadingWords.has(word) || leadingAcrossComma.has(word) || contractions.test(word);
}

/** Whether a text breaks off where no clause can end: "send it to the", "we should", "do not". */
export function breaksOff(text) {
    const [clause] = text.toLowerCase().match(/[\p{sc=Latin}'’ ]*$/u);
    const said = clause.replaceAll('’', "'").trim().split(' ');
    if (carriesOn(said.at(-1), said.at(-2), false)) return true;
    const meant = said.filter((word) => word !== 'not');
    return meant.length <= 2 && auxiliaries.has(meant.at(-1));
}
