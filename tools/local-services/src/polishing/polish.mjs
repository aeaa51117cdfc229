// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// A polisher of fixed rules. It understands nothing: it takes words out and never puts one in.

import { removeFillers } from './fillers.mjs';
import { punctuate } from './punctuation.mjs';
import { removeRepeats } from './repeats.mjs';

/**
 * Takes out fillers and repeats and writes what is left as sentences.
 *
 * @param {string} transcript
 * @param {function(string[]): string} paragraphing as `paragraphing` returns it
 * @returns {string} empty only when the transcript is
 */
export function polish(transcript, paragraphing) {
    const text = transcript.replace(/\s+/gu, ' ').trim();
    const kept = removeRepeats(removeFillers(removeRepeats(text)));
    // Who only said "嗯" meant it.
    return paragraphing(punctuate(/[\p{L}\p{N}]/u.test(kept) ? kept : text));
}
