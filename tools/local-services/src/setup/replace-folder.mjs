// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { existsSync, mkdirSync, mkdtempSync, renameSync, rmSync } from 'node:fs';
import { basename, dirname, join } from 'node:path';

/**
 * Fills a folder beside the wanted one and puts it in its place only when that is done. A failure
 * leaves what was there before, and nothing half done.
 *
 * @param {string} folder
 * @param {function(string): void} fill gets the folder to fill; what it throws is passed on
 */
export function replaceFolder(folder, fill) {
    mkdirSync(dirname(folder), { recursive: true });
    const work = mkdtempSync(join(dirname(folder), `.${basename(folder)}-`));
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
