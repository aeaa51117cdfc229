// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/** They begin a clause that is a part of another: "what I do I do well". */
export const questionWords = new Set(
    (
        'what who whom whose which where when why how ' +
        'whatever whoever whichever wherever whenever however'
    ).split(' '),
);

/** Said twice, they say more, or the opposite. */
export const negations = new Set('no not never none nor neither'.split(' '));

/** The same in Chinese, with auxiliaries, numbers, and verbs whose object is a clause. */
export const hanRefused =
    /[不没别未无谁何哪怎什吗是会能可该要知说零〇一二三四五六七八九十百千万亿两]/u;
