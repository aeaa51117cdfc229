#!/usr/bin/env node
// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// Wrenfold's two services on the user's own machine. Its manual page tells how to use it.

import { disable, enable, install, models, serveHere } from './src/commands/commands.mjs';
import { status } from './src/commands/status.mjs';
import { ownName } from './src/settings/own-name.mjs';

const commands = { install, enable, disable, status, models, serve: serveHere };
const [name, ...options] = process.argv.slice(2);

if (!Object.hasOwn(commands, name)) {
    process.stderr.write(`usage: ${ownName} ${Object.keys(commands).join('|')} [OPTION...]\n`);
    process.exit(2);
}
try {
    await commands[name](options);
} catch (error) {
    process.stderr.write(`wrenfold-local: ${error.message}\n`);
    process.exitCode = 1;
}
