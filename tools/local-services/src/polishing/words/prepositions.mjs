// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/** Prepositions before which no comma is missed. */
export const prepositions = new Set('of to in on at for from with by about into'.split(' '));
