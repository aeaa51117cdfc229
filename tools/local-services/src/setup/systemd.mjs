// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { spawnSync } from 'node:child_process';
import { existsSync, mkdirSync, rmSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';

import { unitsFolder } from '../settings/folders.mjs';
import { searchPath, serviceUnit, socketUnit, units } from './units.mjs';

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

/**
 * Writes the units of a socket and of the service that the first connection starts, and
 * has the service manager listen.
 *
 * @throws {Error} when the service manager refuses
 */
export function startListening(socket) {
    mkdirSync(unitsFolder(), { recursive: true });
    for (const [name, text] of Object.entries(units(socket)))
        writeFileSync(join(unitsFolder(), name), text);
    systemctl('daemon-reload');
    systemctl('stop', serviceUnit, socketUnit);
    systemctl('reset-failed', serviceUnit, socketUnit);
    const { status, stderr } = systemctl('enable', '--now', socketUnit);
    if (status !== 0) throw new Error(`the service manager does not listen: ${stderr.trim()}`);
}

/** Ends the service, stops listening and takes the units away. */
export function stopListening() {
    if (!existsSync(join(unitsFolder(), socketUnit))) return;
    systemctl('disable', '--now', socketUnit);
    systemctl('stop', serviceUnit);
    for (const name of [socketUnit, serviceUnit])
        rmSync(join(unitsFolder(), name), { force: true });
    systemctl('daemon-reload');
}
