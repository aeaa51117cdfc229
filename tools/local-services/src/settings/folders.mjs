// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// Where the companion keeps its files, by the rules of the XDG base directories.

import { existsSync } from 'node:fs';
import { homedir } from 'node:os';
import { isAbsolute, join } from 'node:path';

function baseFolder(variable, ...fallback) {
    const value = process.env[variable] ?? '';
    return isAbsolute(value) ? value : join(homedir(), ...fallback);
}

const configuration = () => baseFolder('XDG_CONFIG_HOME', '.config');

/** All that is installed: program, engine and models. */
export const dataFolder = () => join(baseFolder('XDG_DATA_HOME', '.local', 'share'), 'wrenfold');

/** Program and engine, which `install` puts there. */
export const servicesFolder = () => join(dataFolder(), 'local-services');

/** The installed npm packages: the engine and its binding. */
export const engineFolder = () => join(servicesFolder(), 'engine');

/** What has been fetched, until all of it is installed. */
export const downloadsFolder = () => join(servicesFolder(), 'downloads');

/** The installed copy of this program, which does not depend on the source tree. */
export const programFolder = () => join(servicesFolder(), 'program');

/** One folder a recognition model, each with a manifest.json. */
export const modelsFolder = () => join(dataFolder(), 'models');

/** The socket that the companion is enabled on: in the folder of the session, if there is one. */
export function socketFile() {
    const sessions = [process.env.XDG_RUNTIME_DIR ?? '', `/run/user/${process.geteuid()}`];
    const session = sessions.find((folder) => isAbsolute(folder) && existsSync(folder));
    return join(session ?? dataFolder(), 'wrenfold-local', 'socket');
}

/** The companion's socket and key. */
export const settingsFile = () => join(configuration(), 'wrenfold', 'local-services.json');

/** What `enable` replaced in the application's configuration: not for the companion to read. */
export const replacedFile = () => join(configuration(), 'wrenfold', 'before-local-services.json');

/** The user's own systemd units. */
export const unitsFolder = () => join(configuration(), 'systemd', 'user');

/** The application's configuration, and that of an earlier release which it takes over. */
export const applicationFile = () => join(homedir(), '.wrenfold', 'config.json');
export const legacyApplicationFile = () => join(homedir(), '.hush-wire', 'config.json');
