// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { splitAtPaths } from './plain-words.mjs';

const count = (text, pattern) => text.match(pattern)?.length ?? 0;

/** Whether a text is Chinese with Latin words in it, rather than the other way round. */
export function isChinese(text) {
    const written = splitAtPaths(text).filter((part, index) => index % 2 === 0);
    const spoken = written.join(' ').trim() || text;
    const characters = count(spoken, /\p{sc=Han}/gu);
    // An address is one word.
    return characters > 0 && characters >= count(spoken, /\p{sc=Latin}[^\s\p{sc=Han}]*/gu);
}
