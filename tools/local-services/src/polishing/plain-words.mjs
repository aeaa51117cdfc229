// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

// What makes a word part of an address, a path, the name of a file or a compound.
const inside = "\\p{sc=Latin}\\p{N}'’_/\\\\@#&=+~\\-";

/**
 * The source of a regular expression for words that are nothing but themselves: no part of a
 * compound, nor of anything with / @ . : in it.
 *
 * @param {string} words alternatives, as the source of a regular expression
 */
export const alone = (words) =>
    `(?<![${inside}]|(?<!\\p{sc=Han})[.:?!])(?:${words})` +
    `(?![${inside}]|[.:?!][\\p{sc=Latin}\\p{N}/\\\\])`;

// The name of a folder may be Chinese, and then runs into the words around it.
const paths = /((?:(?<!\p{sc=Latin})\p{sc=Latin}:\\|(?<!\S)~?\/)[^\s，。！？；、,”"]*)/u;

/** What stands between paths, and the paths at the odd places. */
export const splitAtPaths = (text) => text.split(paths);
