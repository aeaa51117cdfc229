// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { spawnSync } from 'node:child_process';
import { existsSync, lstatSync } from 'node:fs';
import { isAbsolute, join } from 'node:path';

const isFolder = (path) => isAbsolute(path) && existsSync(path);

/** Whether it is a folder of ours that nobody else can put files into. */
function isOwn(path) {
    if (!isFolder(path)) return false;
    const { uid, mode } = lstatSync(`${path}/.`);
    return uid === process.geteuid() && (mode & 0o022) === 0;
}

/** The lock that the application holds while it runs, in the first folder that it would take. */
function lockFile({ XDG_RUNTIME_DIR: runtime = '', TMPDIR: temporary = '' }) {
    const own =
        [runtime, temporary].find(isOwn) ??
        join(isFolder(temporary) ? temporary : '/tmp', `wrenfold-${process.geteuid()}`);
    return join(own, 'local.wrenfold.lock');
}

/**
 * Whether the application runs: its lock is taken, by it or by whoever looks at this moment.
 *
 * @throws {Error} when that cannot be told
 */
export function isApplicationRunning(environment = process.env) {
    const file = lockFile(environment);
    if (!existsSync(file)) return false;
    const { status, error } = spawnSync('flock', [
        '--nonblock',
        '--conflict-exit-code',
        '99',
        file,
        'true',
    ]);
    if (error || (status !== 0 && status !== 99))
        throw new Error(
            `it cannot be told whether Wrenfold runs: ${error?.message ?? `flock ${file}`}`,
        );
    return status === 99;
}
