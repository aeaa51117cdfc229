// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// Where the companion is reached.

export const host = '127.0.0.1';

/** The port, unless something else has it when the companion is enabled. */
export const usualPort = 47613;

export const recognitionPath = '/api/v3/auc/bigmodel/recognize/flash';
export const polishingPath = '/chat/completions';

export const origin = (port) => `http://${host}:${port}`;
