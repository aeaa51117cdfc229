// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/** The variable by which a wrapper of this program tells what it is called. */
export const ownNameVariable = 'WRENFOLD_LOCAL_NAME';

/** What a user types to call this program, for messages that say what to do. */
export const ownName = process.env[ownNameVariable] ?? 'wrenfold-local';
