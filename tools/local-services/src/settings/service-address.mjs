// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// Where the companion is reached.

export const host = '127.0.0.1';

/** The port, unless something else has it when the companion is enabled. */
export const usualPort = 47613;

export const recognitionPath = '/api/v3/auc/bigmodel/recognize/flash';
export const polishingPath = '/chat/completions';

/** Where the companion's own program asks, and nothing of the application's does. */
export const statusPath = '/status';

export const origin = (port) => `http://${host}:${port}`;
