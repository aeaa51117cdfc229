// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { randomBytes } from 'node:crypto';
import { existsSync, readFileSync } from 'node:fs';

import { settingsFile } from './folders.mjs';
import { writeOwnFile } from './own-file.mjs';

/** A fresh key of the companion's. */
export const makeKey = () => `local-${randomBytes(24).toString('base64url')}`;

/** Whether a key was made for a companion, this or an earlier one. */
export const isCompanionKey = (key) => /^local-[\w-]{32}$/.test(key);

function parsed(text) {
    try {
        return JSON.parse(text);
    } catch {
        return undefined;
    }
}

/**
 * The companion's own settings.
 *
 * @returns {{socket?: string, port?: number, key: string, language: string}|undefined} `language`
 *     is the one last enabled, a port that of an earlier companion; nothing before the first
 *     `enable`, or when the file is damaged
 */
export function readSettings() {
    if (!existsSync(settingsFile())) return undefined;
    const settings = parsed(readFileSync(settingsFile(), 'utf8'));
    const { socket, port, key } = settings ?? {};
    const hasPlace = typeof socket === 'string' || Number.isInteger(port);
    if (!hasPlace || typeof key !== 'string' || !key) return undefined;
    return { language: 'auto', ...settings };
}

/** Keeps the settings where only their owner can read them. */
export const writeSettings = (settings) =>
    writeOwnFile(settingsFile(), `${JSON.stringify(settings, null, 2)}\n`);
