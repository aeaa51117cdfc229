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

/**
 * The locks that the application may hold while it runs. Where it would not say so itself, one of a
 * desktop session is looked for too: this may be a terminal that belongs to none.
 */
function lockFiles({ XDG_RUNTIME_DIR: runtime = '', TMPDIR: temporary = '' }) {
    const user = process.geteuid();
    const shared = join(isFolder(temporary) ? temporary : '/tmp', `wrenfold-${user}`);
    const folders = isOwn(runtime) ? [runtime] : [`/run/user/${user}`, temporary, shared];
    const locks = folders.filter(isFolder).map((folder) => join(folder, 'local.wrenfold.lock'));
    return locks.filter((lock) => existsSync(lock));
}

function isHeld(file) {
    const options = ['--nonblock', '--conflict-exit-code', '99', file, 'true'];
    const { status, error } = spawnSync('flock', options);
    if (error || (status !== 0 && status !== 99))
        throw new Error(`it cannot be told whether Wrenfold runs: ${error?.message ?? file}`);
    return status === 99;
}

/**
 * Whether the application runs: its lock is taken, by it or by whoever looks at this moment.
 *
 * @throws {Error} when that cannot be told
 */
export const isApplicationRunning = (environment = process.env) =>
    lockFiles(environment).some(isHeld);
