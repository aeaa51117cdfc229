// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import {
    closeSync,
    existsSync,
    fchmodSync,
    fsyncSync,
    mkdirSync,
    openSync,
    realpathSync,
    renameSync,
    rmSync,
    writeFileSync,
} from 'node:fs';
import { dirname } from 'node:path';

/**
 * Replaces a file whole, readable by its owner alone; makes its folder, if need be, likewise. A
 * link stays one: what it points to is replaced.
 */
export function writeOwnFile(path, text) {
    mkdirSync(dirname(path), { recursive: true, mode: 0o700 });
    const target = existsSync(path) ? realpathSync(path) : path;
    const temporary = `${target}.${process.pid}.new`;
    const file = openSync(temporary, 'wx', 0o600);
    try {
        fchmodSync(file, 0o600);
        writeFileSync(file, text);
        fsyncSync(file);
        closeSync(file);
        renameSync(temporary, target);
    } finally {
        rmSync(temporary, { force: true });
    }
}
