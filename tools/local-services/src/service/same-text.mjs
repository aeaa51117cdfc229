// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { createHash, timingSafeEqual } from 'node:crypto';

const digest = (text) => createHash('sha256').update(text).digest();

/** Whether two texts are equal, in a time that does not depend on where they differ. */
export const isSameText = (given, wanted) => timingSafeEqual(digest(given), digest(wanted));
