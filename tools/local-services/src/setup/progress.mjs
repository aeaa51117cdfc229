// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

const step = 10; // percent

/** A number of bytes in the unit that suits `total`. */
const inUnitOf = (bytes, total) =>
    total < 1e6 ? `${Math.ceil(bytes / 1e3)} kB` : `${(bytes / 1e6).toFixed(1)} MB`;

/**
 * Tells how far a download is: on a terminal in one line that is renewed, else in a line whenever
 * another tenth has arrived.
 */
export class Progress {
    #what;
    #terminal;
    #told = -1; // the last percentage

    constructor(what, terminal = process.stdout) {
        this.#what = what;
        this.#terminal = terminal;
    }

    /** So many bytes have arrived, of `total`, which is 0 as long as it is not known. */
    update(bytes, total) {
        const percent = total > 0 ? Math.floor((100 * bytes) / total) : 0;
        const isNews = this.#terminal.isTTY
            ? percent !== this.#told
            : Math.floor(percent / step) !== Math.floor(this.#told / step);
        if (total === 0 || !isNews) return;
        this.#told = percent;
        const share = `${inUnitOf(bytes, total)} of ${inUnitOf(total, total)}, ${percent} %`;
        const line = `${this.#what}: ${share}`;
        this.#terminal.write(this.#terminal.isTTY ? `\r${line}\x1b[K` : `${line}\n`);
    }

    /** No more of it will arrive. */
    end() {
        if (this.#terminal.isTTY && this.#told >= 0) this.#terminal.write('\n');
    }
}
