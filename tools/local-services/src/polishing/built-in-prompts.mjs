// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { existsSync, readFileSync } from 'node:fs';

// Four folders above this file, in the source tree as beside an installed program.
const folder = new URL('../../../../resources/prompts/', import.meta.url);

/**
 * The text of one of the application's own prompts.
 *
 * @param {string} id such as "builtin.clean"
 * @returns {string | undefined} nothing where the prompts are not installed: polishing works
 *     without them, and makes one paragraph of everything
 */
export function builtInPrompt(id) {
    const file = new URL(`${id}.txt`, folder);
    return existsSync(file) ? readFileSync(file, 'utf8').replace(/\n$/, '') : undefined;
}
