// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

const count = (text, pattern) => text.match(pattern)?.length ?? 0;

/** Whether a text is Chinese with Latin words in it, rather than the other way round. */
export function isChinese(text) {
    const characters = count(text, /\p{sc=Han}/gu);
    return characters > 0 && characters >= count(text, /\p{sc=Latin}+/gu);
}
