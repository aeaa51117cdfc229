// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { spawnSync } from 'node:child_process';
import { mkdirSync, mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';

export const program = fileURLToPath(new URL('../../wrenfold-local.mjs', import.meta.url));

/** A home of its own, with the installed engine and models but for what `environment` says. */
export function temporaryHome(context, environment = {}) {
    const home = mkdtempSync(join(tmpdir(), 'wrenfold-home-'));
    context.after(() => rmSync(home, { recursive: true, force: true }));
    const { PATH, XDG_DATA_HOME = '' } = process.env;
    return {
        path: (...names) => join(home, ...names),
        environment: { PATH, XDG_DATA_HOME, HOME: home, XDG_RUNTIME_DIR: home, ...environment },
    };
}

/** Writes a file and its folders. */
export function write(path, text, mode = 0o644) {
    mkdirSync(dirname(path), { recursive: true });
    writeFileSync(path, text, { mode });
}

/** Runs a command of the companion. */
export function run({ environment }, ...args) {
    const options = { env: environment, encoding: 'utf8' };
    const { status, stdout, stderr } = spawnSync(process.execPath, [program, ...args], options);
    return { status, stdout, stderr };
}
