// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { readFileSync } from 'node:fs';

/**
 * The rows of a table of dictations: what was said, a tab, and what is to be written; where that is
 * the same, nothing behind it. A line that begins with "# " is a comment.
 *
 * @param {URL} file
 * @returns {[string, string][]}
 */
export function sentenceRows(file) {
    const lines = readFileSync(file, 'utf8').split('\n');
    return lines
        .filter((line) => line && !line.startsWith('#'))
        .map((line) => line.split('\t'))
        .map(([said, written = said]) => [said, written]);
}
