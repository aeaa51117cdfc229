// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { spawnSync } from 'node:child_process';
import { existsSync, mkdirSync, rmSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';

import { programFolder, unitsFolder } from '../settings/folders.mjs';
import { host } from '../settings/service-address.mjs';

const socketUnit = 'wrenfold-local.socket';
const serviceUnit = 'wrenfold-local.service';

const systemctl = (...args) => spawnSync('systemctl', ['--user', ...args], { encoding: 'utf8' });

/** Whether a service manager of the user's runs. */
export const hasServiceManager = () => systemctl('show-environment').status === 0;

/** Quotes keep blanks, "%" has a meaning in a unit, and in a command so has "$". */
const quoted = (text) => `"${text.replace(/[\\"]/g, '\\$&').replaceAll('%', '%%')}"`;
const quotedArgument = (text) => quoted(text).replaceAll('$', '$$$$');

function units(port) {
    const command = [process.execPath, join(programFolder(), 'wrenfold-local.mjs'), 'serve'];
    return {
        [socketUnit]: `[Unit]
Description=Speech recognition and polishing for Wrenfold, on this machine

[Socket]
ListenStream=${host}:${port}

[Install]
WantedBy=sockets.target
`,
        [serviceUnit]: `[Unit]
Description=Speech recognition and polishing for Wrenfold, on this machine
Requires=${socketUnit}

[Service]
ExecStart=${command.map(quotedArgument).join(' ')}
Environment=${['XDG_DATA_HOME', 'XDG_CONFIG_HOME']
            .filter((name) => process.env[name])
            .map((name) => quoted(`${name}=${process.env[name]}`))
            .join(' ')}
NoNewPrivileges=yes
RestrictAddressFamilies=AF_INET AF_UNIX
LimitCORE=0
UMask=0077
`,
    };
}

/**
 * Writes the units of a socket on the port and of the service that the first connection starts, and
 * has the service manager listen.
 *
 * @throws {Error} when the service manager refuses
 */
export function startListening(port) {
    mkdirSync(unitsFolder(), { recursive: true });
    for (const [name, text] of Object.entries(units(port)))
        writeFileSync(join(unitsFolder(), name), text);
    systemctl('daemon-reload');
    systemctl('stop', serviceUnit, socketUnit);
    const { status, stderr } = systemctl('enable', '--now', socketUnit);
    if (status !== 0)
        throw new Error(
            `the service manager does not listen: ${stderr.trim()}; use: scripts/local serve`,
        );
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
