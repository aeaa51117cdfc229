// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { readFileSync } from 'node:fs';

// In the source tree a link to where the application has them from.
const folder = new URL('../../prompts/', import.meta.url);

/**
 * The text of one of the application's own prompts; the line feed that ends its file is not part
 * of it.
 *
 * @param {string} id such as "builtin.clean"
 */
export const builtInPrompt = (id) =>
    readFileSync(new URL(`${id}.txt`, folder), 'utf8').replace(/\n$/, '');
