// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { spawnSync } from 'node:child_process';
import {
    mkdirSync,
    mkdtempSync,
    readdirSync,
    readFileSync,
    rmSync,
    statSync,
    writeFileSync,
} from 'node:fs';
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

/** The files below a home, and what is in them. */
export function contents(home) {
    const names = readdirSync(home.path(), { recursive: true }).sort();
    const files = names.filter((name) => statSync(home.path(name)).isFile());
    return files.map((name) => [name, readFileSync(home.path(name), 'utf8')]);
}

/** Writes a file and its folders. */
export function write(path, text, mode = 0o644) {
    mkdirSync(dirname(path), { recursive: true });
    writeFileSync(path, text, { mode });
}

/** Runs a command of the companion, or of a copy of it. */
export const run = (home, ...args) => runProgram(program, home, ...args);

export function runProgram(path, { environment }, ...args) {
    const options = { env: environment, encoding: 'utf8' };
    const { status, stdout, stderr } = spawnSync(process.execPath, [path, ...args], options);
    return { status, stdout, stderr };
}
