// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// What the companion takes of a request, and how long it waits; times are in milliseconds.

const second = 1000;
const minute = 60 * second;

/** After which a companion that the service manager started ends by itself. */
export const idleTime = 10 * minute;

/**
 * For the headers of a request to arrive, the first of a connection or the next one. A connection
 * that the application opened ahead is dropped when a recording takes longer, and opened anew.
 */
export const headersPatience = 10 * second;

/** For the body of a request that knew the key, and of one that did not. */
export const bodyPatience = minute;
export const refusedBodyPatience = 10 * second;

/** Recordings in memory at once, the one in work included. */
export const mostRecordings = 4;

/** Bytes of a recording's body: ten minutes as the application records them, and some room. */
export const recordingLimit = 32 << 20;

/** Bytes of a body with a text to polish. */
export const textLimit = 1 << 18;

/** Seconds of sound: below, the engine complains; above, the application stops waiting. */
export const shortestSound = 0.1;
export const longestSound = 600;
