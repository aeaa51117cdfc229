// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// What the user's service manager is told about the companion. Written for each user: the folders
// that it names are where the user's variables put them.

import { homedir } from 'node:os';
import { dirname, join } from 'node:path';

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

/** Quotes keep blanks, "%" has a meaning in a unit, and in a command so has "$". */
const quoted = (text) => `"${text.replace(/[\\"]/g, '\\$&').replaceAll('%', '%%')}"`;
const quotedArgument = (text) => quoted(text).replaceAll('$', '$$$$');

const description = 'Speech recognition and polishing for Wrenfold, on this machine';

const socketText = (path) => `[Unit]
Description=${description}

[Socket]
ListenStream=${path.replaceAll('%', '%%')}
SocketMode=0600
DirectoryMode=0700
RemoveOnStop=yes

[Install]
WantedBy=sockets.target
`;

function serviceText() {
    const program = join(programFolder(), 'wrenfold-local.mjs');
    const variables = ['XDG_DATA_HOME', 'XDG_CONFIG_HOME', ownNameVariable].filter(
        (name) => process.env[name],
    );
    const environment = { PATH: searchPath };
    for (const name of variables) environment[name] = process.env[name];
    const assignments = Object.entries(environment).map(([name, value]) => `${name}=${value}`);
    return `[Unit]
Description=${description}
Requires=${socketUnit}
# What does not start is tried again for as long as somebody asks for it.
StartLimitIntervalSec=0

[Service]
ExecStart=/usr/bin/env node ${quotedArgument(program)} serve
Environment=${assignments.map(quoted).join(' ')}
Restart=on-failure
RestartSec=5

# It reads its program, its models and its settings, and nothing else of the user's.
ProtectHome=tmpfs
TemporaryFileSystem=${quoted(`${homedir()}:ro`)}
BindReadOnlyPaths=${[dataFolder(), settingsFile()].map(quoted).join(' ')}
InaccessiblePaths=${[dirname(applicationFile()), replacedFile()].map((path) => quoted(`-${path}`)).join(' ')}
ProtectSystem=strict
PrivateTmp=yes
PrivateDevices=yes
PrivateUsers=yes
ProtectProc=invisible
ProcSubset=pid

# It answers on the socket that it is given, and has no network.
PrivateNetwork=yes
RestrictAddressFamilies=AF_UNIX
IPAddressDeny=any

# What was said stays in memory, of which bigger models than the one installed need more.
MemoryMax=2G
MemorySwapMax=0
LimitCORE=0
UMask=0077

NoNewPrivileges=yes
CapabilityBoundingSet=
LockPersonality=yes
ProtectClock=yes
ProtectControlGroups=yes
ProtectHostname=yes
ProtectKernelLogs=yes
ProtectKernelModules=yes
ProtectKernelTunables=yes
RestrictNamespaces=yes
RestrictRealtime=yes
RestrictSUIDSGID=yes
SystemCallArchitectures=native
SystemCallFilter=@system-service
SystemCallFilter=~@privileged @resources
SystemCallErrorNumber=EPERM
`;
}

/** The units by their file names, for a socket at a path. */
export const units = (path) => ({ [socketUnit]: socketText(path), [serviceUnit]: serviceText() });
