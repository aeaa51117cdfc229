// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// Where the companion is reached.

export const recognitionPath = '/api/v3/auc/bigmodel/recognize/flash';
export const polishingPath = '/chat/completions';

/** Where the companion's own program asks, and nothing of the application's does. */
export const statusPath = '/status';

const socketScheme = 'http+unix://';
const portBase = 'http://127.0.0.1:';

/** What the addresses of a companion with these settings begin with; earlier ones had a port. */
export const origin = ({ socket, port }) =>
    socket ? `${socketScheme}${encodeURIComponent(socket)}` : `${portBase}${port}`;

/** Whether an address can be that of a companion, this or an earlier one. */
export const isCompanionAddress = (address) =>
    [socketScheme, portBase].some((start) => address.startsWith(start));
