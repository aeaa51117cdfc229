// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/** These can end a clause, but not where nothing of it was said before. */
export const openingWords = new Set('it you this please in on at for with from'.split(' '));

/** The same in Chinese. */
export const hanOpeningWords =
    '我们|你们|他们|她们|咱们|这个|那个|这些|那些|今天|明天|现在|[我你他她它]';
