// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { existsSync, readFileSync, rmSync } from 'node:fs';

import { writeOwnFile } from '../settings/own-file.mjs';

const contents = (path) => (existsSync(path) ? readFileSync(path, 'utf8') : undefined);

function restore(path, text) {
    if (text === undefined) rmSync(path, { force: true });
    else if (contents(path) !== text) writeOwnFile(path, text);
}

/**
 * Does some work that writes files. When it throws they are what they were before.
 *
 * @param {string[]} paths
 * @param {function()} work
 */
export function allOrNothing(paths, work) {
    const before = paths.map((path) => [path, contents(path)]);
    try {
        work();
    } catch (error) {
        for (const [path, text] of before) restore(path, text);
        throw error;
    }
}
