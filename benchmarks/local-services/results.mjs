// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { appendFileSync } from 'node:fs';

function median(values) {
    const sorted = [...values].sort((a, b) => a - b);
    const middle = Math.floor(sorted.length / 2);
    return sorted.length % 2 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) / 2;
}

const number = (value) => Number(value.toFixed(value < 10 ? 2 : 1));

/** Prints rows as the other benchmarks do and appends them to their file, a JSON object a line. */
export class Results {
    #file;

    constructor(file) {
        this.#file = file;
    }

    /** @param {{name: string, unit: string, values: number[], peer?: string, peerValues?: number[]}} row */
    add({ name, unit, values, peer, peerValues }) {
        const own = number(median(values));
        const row = { name, unit, wrenfold: own, values: values.map(number) };
        let beside = '';
        let ratio = '';
        if (peer) {
            const other = number(median(peerValues));
            row.ratio = number(own / other);
            Object.assign(row, { peer, peerMedian: other, peerValues: peerValues.map(number) });
            beside = `${peer} ${other} ${unit}`;
            ratio = String(row.ratio);
        }
        appendFileSync(this.#file, `${JSON.stringify(row)}\n`);
        const columns = [name.padEnd(54), `${own} ${unit}`.padStart(12), ' ', beside.padEnd(22)];
        process.stdout.write(`${columns.join(' ')} ${ratio.padStart(6)}\n`);
    }
}
