// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { existsSync, readFileSync } from 'node:fs';

import { applicationFile, legacyApplicationFile } from '../settings/folders.mjs';
import { addMember, replaceValues } from './json-text.mjs';
import { writeOwnFile } from '../settings/own-file.mjs';

// What the application writes at its first start, for a configuration that has no such part yet.
const defaults = {
    deepSeek: {
        apiKey: '',
        baseURL: 'https://api.deepseek.com',
        model: 'deepseek-v4-flash',
    },
    volcengine: {
        accessKey: '',
        apiKey: '',
        appKey: '',
        enableDDC: true,
        enableITN: true,
        enablePunctuation: true,
        endpoint: 'https://openspeech.bytedance.com/api/v3/auc/bigmodel/recognize/flash',
        modelName: 'bigmodel',
        resourceId: 'volc.bigasr.auc_turbo',
    },
};

/** The values that lead to the two services. */
export const servicePaths = [
    'volcengine.endpoint',
    'volcengine.apiKey',
    'deepSeek.baseURL',
    'deepSeek.apiKey',
];

function readText() {
    if (existsSync(applicationFile())) return readFileSync(applicationFile(), 'utf8');
    if (existsSync(legacyApplicationFile()))
        throw new Error(
            'Wrenfold has settings of an earlier release to take over: start it once first',
        );
    return '{}\n';
}

function completed(text) {
    const missing = Object.entries(defaults).filter(
        ([name]) => (JSON.parse(text)[name] ?? null) === null,
    );
    return missing.reduce(
        (all, [name, value]) =>
            name in JSON.parse(all)
                ? replaceValues(all, { [name]: value })
                : addMember(all, name, value),
        text,
    );
}

/**
 * The service values of the configuration as it is now.
 *
 * @throws {Error} when the file cannot be read, or `writeServiceValues` could not change it
 */
export function serviceValues() {
    const text = completed(readText());
    // Tells what would be in the way of a change.
    replaceValues(text, Object.fromEntries(servicePaths.map((path) => [path, ''])));
    const root = JSON.parse(text);
    return Object.fromEntries(
        servicePaths.map((path) => {
            const [part, name] = path.split('.');
            return [path, root[part][name]];
        }),
    );
}

/**
 * Changes service values in the application's configuration; every other value stays.
 *
 * @param {Object<string, string>} values by their paths
 * @throws {Error} when the file cannot be read, changed or written
 */
export function writeServiceValues(values) {
    writeOwnFile(applicationFile(), replaceValues(completed(readText()), values));
}
