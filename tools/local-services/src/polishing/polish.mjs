// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// A polisher of fixed rules. It understands nothing: it takes words out and never puts one in, and
// only those that cannot have been meant. Where it cannot tell, they stay.

import { removeFillers } from './fillers.mjs';
import { removeHanRepeats } from './han-repeats.mjs';
import { punctuate } from './punctuation.mjs';
import { removeRepeats } from './repeats.mjs';

const rules = [removeFillers, removeRepeats, removeHanRepeats];

/**
 * Takes out fillers and repeats and writes what is left as sentences.
 *
 * @param {string} transcript
 * @param {function(string[]): string} paragraphing as `paragraphing` returns it
 * @returns {string} empty only when the transcript is
 */
export function polish(transcript, paragraphing) {
    let text = transcript.replace(/\s+/gu, ' ').trim();
    // What one rule takes out can bring together what another one sees.
    for (let last; last !== text;) {
        last = text;
        text = rules.reduce((kept, rule) => rule(kept), text);
    }
    return paragraphing(punctuate(text));
}
