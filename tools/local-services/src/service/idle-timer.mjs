// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/** Tells when nothing has been in work for a while. */
export class IdleTimer {
    #inWork = 0;
    #timer;
    #milliseconds;
    #onIdle;

    /**
     * Starts with nothing in work.
     *
     * @param {number} milliseconds
     * @param {function()} onIdle
     */
    constructor(milliseconds, onIdle) {
        this.#milliseconds = milliseconds;
        this.#onIdle = onIdle;
        this.#start();
    }

    /** Does some work, during which it is not idle. */
    async during(work) {
        ++this.#inWork;
        clearTimeout(this.#timer);
        try {
            return await work();
        } finally {
            if (--this.#inWork === 0) this.#start();
        }
    }

    #start() {
        // It keeps no process alive that does not serve.
        this.#timer = setTimeout(this.#onIdle, this.#milliseconds).unref();
    }
}
