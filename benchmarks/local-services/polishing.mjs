// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
//
// usage: node polishing.mjs ROWS
// Counts how many of the sentences that the rules were never tuned to come out right. The row is
// appended to the file; those that are wrong go to standard error.

import { paragraphing } from '../../tools/local-services/src/polishing/paragraphs.mjs';
import { polish } from '../../tools/local-services/src/polishing/polish.mjs';
import { sentenceRows } from '../../tools/local-services/test/support/sentence-rows.mjs';
import { Results } from './results.mjs';

const rows = sentenceRows(new URL('./polishing-sentences.tsv', import.meta.url));

let right = 0;
for (const [said, expected] of rows) {
    const written = polish(said, paragraphing(''));
    if (written === expected) ++right;
    else process.stderr.write(`${said}\n  is     ${written}\n  not    ${expected}\n`);
}
const name = `Local: polished as meant, of ${rows.length} sentences`;
new Results(process.argv[2]).add({ name, unit: 'right', values: [right] });
