// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { existsSync, readFileSync, rmSync } from 'node:fs';

import { applicationFile, replacedFile } from '../settings/folders.mjs';
import { writeOwnFile } from '../settings/own-file.mjs';
import { ownName } from '../settings/own-name.mjs';
import { isCompanionAddress, origin, recognitionPath } from '../settings/service-address.mjs';
import { isCompanionKey } from '../settings/settings.mjs';
import { servicePaths, serviceValues, writeServiceValues } from './application-configuration.mjs';
import { isApplicationRunning } from './application-lock.mjs';

const keyPaths = servicePaths.filter((path) => path.endsWith('.apiKey'));

function companionValues({ key, language, ...place }) {
    const query = language === 'auto' ? '' : `?language=${language}`;
    return {
        'volcengine.endpoint': `${origin(place)}${recognitionPath}${query}`,
        'volcengine.apiKey': key,
        'deepSeek.baseURL': origin(place),
        'deepSeek.apiKey': key,
    };
}

const originOf = (address) => String(address).match(/^http(s|\+unix)?:\/\/[^/?]*/)?.[0];

/**
 * The paths of the values that lead to a companion, this or an earlier one: keys of its form, and
 * addresses of its socket, or port, or of that of an address beside such a key.
 */
function companionPaths(values, settings) {
    const keys = keyPaths.filter((path) => isCompanionKey(values[path]));
    const addresses = servicePaths.filter((path) => !keyPaths.includes(path));
    const origins = addresses
        .filter((path) => keys.some((key) => key.split('.')[0] === path.split('.')[0]))
        .map((path) => originOf(values[path]));
    if (settings) origins.push(origin(settings));
    const own = origins.filter((each) => each && isCompanionAddress(each));
    return [...keys, ...addresses.filter((path) => own.includes(originOf(values[path])))];
}

/** What `switchOn` replaced. A companion's key is none of the user's, however it came there. */
function readReplaced() {
    if (!existsSync(replacedFile())) return {};
    try {
        const values = Object.entries(JSON.parse(readFileSync(replacedFile(), 'utf8')));
        return Object.fromEntries(values.filter(([, value]) => !isCompanionKey(value)));
    } catch {
        throw new Error(`${replacedFile()}, which keeps what Wrenfold used before, is damaged`);
    }
}

function refuseWhileRunning() {
    if (isApplicationRunning())
        throw new Error(
            'Wrenfold is running and would undo this with its next save: quit it first',
        );
}

/**
 * What switching on replaces, with what was replaced before.
 *
 * @param {object} [earlier] the settings until now
 * @throws {Error} when the application runs, its configuration cannot be changed, or a value that
 *     is kept would be lost
 */
export function valuesToKeep(earlier) {
    refuseWhileRunning();
    const values = serviceValues();
    const own = companionPaths(values, earlier);
    const replaced = readReplaced();
    for (const path of servicePaths.filter((each) => !own.includes(each))) {
        if ((replaced[path] ?? values[path]) !== values[path])
            throw new Error(
                `${path} was changed since the local services were enabled: ` +
                    `${ownName} disable first`,
            );
        replaced[path] = values[path];
    }
    return replaced;
}

/**
 * Lets the application use the companion, and keeps what that replaces.
 *
 * @param {{socket: string, key: string, language: string}} settings
 * @param {object} [earlier] the settings until now
 * @throws {Error} as `valuesToKeep`, and when a file cannot be written
 */
export function switchOn(settings, earlier) {
    const replaced = valuesToKeep(earlier);
    if (Object.keys(replaced).length)
        writeOwnFile(replacedFile(), `${JSON.stringify(replaced, null, 2)}\n`);
    writeServiceValues(companionValues(settings));
}

/**
 * Puts back what `switchOn` replaced, but for values that were changed by hand since.
 *
 * @param {object} [settings]
 * @returns {string[]} the values that lead elsewhere already and stay
 * @throws {Error} as `switchOn`, and when it is not known what to put back; nothing is changed then
 */
export function switchOff(settings) {
    refuseWhileRunning();
    const values = serviceValues();
    const own = companionPaths(values, settings);
    const replaced = readReplaced();
    const missing = own.filter((path) => !Object.hasOwn(replaced, path));
    if (missing.length)
        throw new Error(
            `${replacedFile()} does not tell what Wrenfold used before as ${missing.join(', ')}: ` +
                `enter that in ${applicationFile()}, then disable again`,
        );
    writeServiceValues(Object.fromEntries(own.map((path) => [path, replaced[path]])));
    rmSync(replacedFile(), { force: true });
    const others = Object.keys(replaced).filter((path) => !own.includes(path));
    return others.filter((path) => values[path] !== replaced[path]);
}

/** Whether the application's configuration leads to the companion, all four values of it. */
export function isSwitchedOn(settings) {
    const values = serviceValues();
    return Object.entries(companionValues(settings)).every(
        ([path, value]) => String(values[path]).split('?')[0] === value.split('?')[0],
    );
}
