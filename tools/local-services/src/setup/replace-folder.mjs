// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { existsSync, mkdirSync, mkdtempSync, readdirSync, renameSync, rmSync } from 'node:fs';
import { basename, dirname, join } from 'node:path';

function isRunning(pid) {
    try {
        return process.kill(pid, 0);
    } catch (error) {
        return error.code === 'EPERM';
    }
}

/** Removes what calls left behind whose process was killed. */
function sweep(parent, prefix) {
    for (const name of readdirSync(parent).filter((each) => each.startsWith(prefix)))
        if (!isRunning(parseInt(name.slice(prefix.length), 10)))
            rmSync(join(parent, name), { recursive: true, force: true });
}

/**
 * Fills a folder beside the wanted one and puts it in its place only when that is done. A failure
 * leaves what was there before, and nothing half done.
 *
 * @param {string} folder
 * @param {function(string): void} fill gets the folder to fill; what it throws is passed on
 */
export function replaceFolder(folder, fill) {
    const parent = dirname(folder);
    const prefix = `.${basename(folder)}-`;
    mkdirSync(parent, { recursive: true });
    sweep(parent, prefix);
    const work = mkdtempSync(join(parent, `${prefix}${process.pid}-`));
    try {
        const fresh = join(work, 'fresh');
        mkdirSync(fresh);
        fill(fresh);
        if (existsSync(folder)) renameSync(folder, join(work, 'old'));
        renameSync(fresh, folder);
    } finally {
        rmSync(work, { recursive: true, force: true });
    }
}
