// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
//
// usage: node polishing.mjs ROWS
// Counts how many of the sentences that the rules were never tuned to come out right. The row is
// appended to the file; those that are wrong go to standard error.

import { readFileSync } from 'node:fs';

import { paragraphing } from '../../tools/local-services/src/polishing/paragraphs.mjs';
import { polish } from '../../tools/local-services/src/polishing/polish.mjs';
import { Results } from './results.mjs';

const file = new URL('./polishing-sentences.tsv', import.meta.url);
const rows = readFileSync(file, 'utf8')
    .split('\n')
    .filter((line) => line && !line.startsWith('#'))
    .map((line) => line.split('\t'));

let right = 0;
for (const [said, expected = said] of rows) {
    const written = polish(said, paragraphing(''));
    if (written === expected) ++right;
    else process.stderr.write(`${said}\n  is     ${written}\n  not    ${expected}\n`);
}
const name = `Local: polished as meant, of ${rows.length} sentences`;
new Results(process.argv[2]).add({ name, unit: 'right', values: [right] });
