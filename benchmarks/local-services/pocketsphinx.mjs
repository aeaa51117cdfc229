// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { execFileSync } from 'node:child_process';
import { readFileSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';

const model = '/usr/share/pocketsphinx/model/en-us';

/**
 * The recordings as pocketsphinx hears them, with Debian's English model.
 *
 * @returns {{heard: string[], seconds: number}} seconds for all of them, loading included
 */
export function recogniseWithPocketsphinx(folder, recordings) {
    const [list, result] = [join(folder, 'list'), join(folder, 'heard')];
    writeFileSync(list, recordings.map(({ name }) => `${name}\n`).join(''));
    const start = performance.now();
    const options = {
        adcin: 'yes',
        adchdr: '44',
        cepdir: folder,
        cepext: '.wav',
        ctl: list,
        hyp: result,
        logfn: '/dev/null',
        hmm: `${model}/en-us`,
        lm: `${model}/en-us.lm.bin`,
        dict: `${model}/cmudict-en-us.dict`,
    };
    execFileSync(
        'pocketsphinx_batch',
        Object.entries(options).flatMap(([name, value]) => [`-${name}`, value]),
    );
    const seconds = (performance.now() - start) / 1000;
    const lines = readFileSync(result, 'utf8').trimEnd().split('\n');
    return { heard: lines.map((line) => line.replace(/ ?\([^()]*\)$/, '')), seconds };
}
