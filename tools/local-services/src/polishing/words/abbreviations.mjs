// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/** What is written with a point that ends no sentence. */
const abbreviations =
    'Mr Mrs Ms Dr Prof St Mt Jr Sr vs etc approx Inc Ltd Co Corp Fig Vol ' +
    'Jan Feb Mar Apr Aug Sept Oct Nov Dec';

/** The end of a text that is one of them, or an initial. */
export const abbreviated = new RegExp(
    `(?:^|[\\s(])(?:${abbreviations.replaceAll(' ', '|')}|(?!I)\\p{Lu})\\.$`,
    'u',
);

/** The end of a text that is letters with points: U.S., p.m. */
export const pointed = /(?<!\p{sc=Latin})(?:\p{sc=Latin}{1,2}\.){2,}$/u;
