// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { spawnSync } from 'node:child_process';
import { copyFileSync, existsSync, mkdirSync, rmSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';

import { unitsFolder } from '../settings/folders.mjs';
import {
    isPackaged,
    ownUnitParts,
    searchPath,
    serviceUnit,
    socketUnit,
    unitSources,
} from './units.mjs';

const systemctl = (...args) => spawnSync('systemctl', ['--user', ...args], { encoding: 'utf8' });

/** Whether a service manager of the user's runs. */
export const hasServiceManager = () => systemctl('show-environment').status === 0;

const isActive = (unit) => systemctl('is-active', unit).status === 0;

/** Whether the service manager listens for the companion and has not started it yet. */
export const isWaiting = () => isActive(socketUnit) && !isActive(serviceUnit);

/**
 * Makes sure that the service manager can start the companion.
 *
 * @throws {Error} when the service manager would find no Node.js, or one that is too old
 */
export function checkNode() {
    const isRecent = 'process.exit(parseInt(process.versions.node) >= 18 ? 0 : 1)';
    const env = { PATH: searchPath };
    if (spawnSync('/usr/bin/env', ['node', '-e', isRecent], { env }).status !== 0)
        throw new Error(`there is no Node.js of version 18 or later in ${searchPath}`);
}

const own = (name) => join(unitsFolder(), name);
const ownUnits = [socketUnit, serviceUnit].flatMap((unit) => [own(unit), own(`${unit}.d`)]);

function removeOwnUnits() {
    for (const path of ownUnits) rmSync(path, { recursive: true, force: true });
}

function writeOwnUnits(socket) {
    removeOwnUnits();
    for (const [name, text] of Object.entries(ownUnitParts(socket))) {
        mkdirSync(dirname(own(name)), { recursive: true });
        writeFileSync(own(name), text);
    }
    if (isPackaged) return;
    for (const unit of [socketUnit, serviceUnit]) copyFileSync(join(unitSources, unit), own(unit));
}

/**
 * Writes what the units of a socket, and of the service that the first connection starts, need for
 * this user, and has the service manager listen.
 *
 * @throws {Error} when the service manager refuses
 */
export function startListening(socket) {
    writeOwnUnits(socket);
    systemctl('daemon-reload');
    systemctl('stop', serviceUnit, socketUnit);
    systemctl('reset-failed', serviceUnit, socketUnit);
    const { status, stderr } = systemctl('enable', '--now', socketUnit);
    if (status !== 0) throw new Error(`the service manager does not listen: ${stderr.trim()}`);
}

/** Ends the service, stops listening and takes this user's units away. */
export function stopListening() {
    if (!ownUnits.some(existsSync)) return;
    systemctl('disable', '--now', socketUnit);
    systemctl('stop', serviceUnit);
    removeOwnUnits();
    systemctl('daemon-reload');
}
