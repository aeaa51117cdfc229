// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// What the user's service manager is told about the companion: the units in units/, which a package
// gives to every user of the machine, and beside them what differs for this one.

import { existsSync } from 'node:fs';
import { homedir } from 'node:os';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';

import {
    applicationFile,
    dataFolder,
    programFolder,
    replacedFile,
    settingsFile,
} from '../settings/folders.mjs';
import { ownNameVariable } from '../settings/own-name.mjs';

export const socketUnit = 'wrenfold-local.socket';
export const serviceUnit = 'wrenfold-local.service';

/** Where Node.js is looked for: whichever the system has, through its upgrades. */
export const searchPath = '/usr/local/bin:/usr/bin:/bin';

/** Whether a package brought this program, and the units with it. */
export const isPackaged =
    fileURLToPath(import.meta.url).startsWith('/usr/share/') &&
    existsSync(join('/usr/lib/systemd/user', serviceUnit));

/** The units where no package brought them. */
export const unitSources = fileURLToPath(new URL('../../units', import.meta.url));

/** Quotes keep blanks, "%" has a meaning in a unit, and in a command so has "$". */
const quoted = (text) => `"${text.replace(/[\\"]/g, '\\$&').replaceAll('%', '%%')}"`;
const quotedArgument = (text) => quoted(text).replaceAll('$', '$$$$');

/** A list that takes the place of the unit's own. */
const instead = (name, values) => `${name}=\n${name}=${values.map(quoted).join(' ')}\n`;

const socketText = (path) => `[Socket]
ListenStream=
ListenStream=${path.replaceAll('%', '%%')}
`;

function ownProgram() {
    const program = join(programFolder(), 'wrenfold-local.mjs');
    return `ExecStart=\nExecStart=/usr/bin/env node ${quotedArgument(program)} serve\n`;
}

function serviceText() {
    const environment = { PATH: searchPath };
    for (const name of ['XDG_DATA_HOME', 'XDG_CONFIG_HOME', ownNameVariable])
        if (process.env[name]) environment[name] = process.env[name];
    const hidden = [dirname(applicationFile()), replacedFile()].map((path) => `-${path}`);
    return [
        '[Service]\n',
        isPackaged ? '' : ownProgram(),
        instead(
            'Environment',
            Object.entries(environment).map(([name, value]) => `${name}=${value}`),
        ),
        instead('TemporaryFileSystem', [`${homedir()}:ro`]),
        instead('BindReadOnlyPaths', [dataFolder(), settingsFile()]),
        instead('InaccessiblePaths', hidden),
    ].join('');
}

/** What differs for this user, by file names beside the units, for a socket at a path. */
export const ownUnitParts = (path) => ({
    [`${socketUnit}.d/own.conf`]: socketText(path),
    [`${serviceUnit}.d/own.conf`]: serviceText(),
});
