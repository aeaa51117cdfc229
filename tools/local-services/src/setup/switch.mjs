// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { existsSync, readFileSync, rmSync } from 'node:fs';

import { serviceValues, writeServiceValues } from './application-configuration.mjs';
import { isApplicationRunning } from './application-lock.mjs';
import { replacedFile } from '../settings/folders.mjs';
import { writeOwnFile } from '../settings/own-file.mjs';
import { origin, recognitionPath } from '../settings/service-address.mjs';

function companionValues({ port, key, language }) {
    const query = language === 'auto' ? '' : `?language=${language}`;
    return {
        'volcengine.endpoint': `${origin(port)}${recognitionPath}${query}`,
        'volcengine.apiKey': key,
        'deepSeek.baseURL': origin(port),
        'deepSeek.apiKey': key,
    };
}

/** Whether a value leads to the companion, whatever the language. */
const isCompanions = (value, { port, key }) =>
    value === key || value === origin(port) || String(value).startsWith(`${origin(port)}/`);

const readReplaced = () =>
    existsSync(replacedFile()) ? JSON.parse(readFileSync(replacedFile(), 'utf8')) : {};

function refuseWhileRunning() {
    if (isApplicationRunning())
        throw new Error(
            'Wrenfold is running and would undo this with its next save: quit it first',
        );
}

/**
 * Lets the application use the companion, and keeps what that replaces.
 *
 * @param {{port: number, key: string, language: string}} settings
 * @throws {Error} when the application runs, or its configuration cannot be read or written
 */
export function switchOn(settings) {
    refuseWhileRunning();
    const replaced = readReplaced();
    for (const [path, value] of Object.entries(serviceValues()))
        if (!isCompanions(value, settings)) replaced[path] = value;
    writeOwnFile(replacedFile(), `${JSON.stringify(replaced, null, 2)}\n`);
    writeServiceValues(companionValues(settings));
}

/**
 * Puts back what `switchOn` replaced, but for values that were changed by hand since.
 *
 * @param {{port: number, key: string}} settings
 * @returns {string[]} the values that lead elsewhere already and stay
 * @throws {Error} as `switchOn`
 */
export function switchOff(settings) {
    refuseWhileRunning();
    const replaced = readReplaced();
    const current = serviceValues();
    const paths = Object.keys(replaced);
    const back = paths.filter((path) => isCompanions(current[path], settings));
    writeServiceValues(Object.fromEntries(back.map((path) => [path, replaced[path]])));
    rmSync(replacedFile(), { force: true });
    return paths.filter((path) => !back.includes(path) && current[path] !== replaced[path]);
}

/** Whether the application's configuration leads to the companion, all four values of it. */
export function isSwitchedOn(settings) {
    return Object.values(serviceValues()).every((value) => isCompanions(value, settings));
}
