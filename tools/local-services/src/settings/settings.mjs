// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { existsSync, readFileSync } from 'node:fs';

import { settingsFile } from './folders.mjs';
import { writeOwnFile } from './own-file.mjs';

/**
 * The companion's own settings, or nothing before the first `enable`.
 *
 * @returns {{port: number, key: string, language: string}|undefined} `language` is the one last
 *     enabled
 * @throws {Error} when the file is damaged
 */
export function readSettings() {
    if (!existsSync(settingsFile())) return undefined;
    const settings = JSON.parse(readFileSync(settingsFile(), 'utf8'));
    if (!Number.isInteger(settings?.port) || typeof settings.key !== 'string' || !settings.key)
        throw new Error(`${settingsFile()} is damaged; remove it and enable again`);
    return { language: 'auto', ...settings };
}

/** Keeps the settings where only their owner can read them. */
export const writeSettings = (settings) =>
    writeOwnFile(settingsFile(), `${JSON.stringify(settings, null, 2)}\n`);
