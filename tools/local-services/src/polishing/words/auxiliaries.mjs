// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/** They stand for a whole clause ("when I do") and begin a question ("do you"). */
export const auxiliaries = new Set(
    (
        'am is are was were be been do does did have has had can could will would shall should ' +
        "may might must isn't aren't wasn't weren't don't doesn't didn't haven't hasn't hadn't " +
        "can't couldn't won't wouldn't shouldn't"
    ).split(' '),
);
