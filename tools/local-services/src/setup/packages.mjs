// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { spawnSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import { readFileSync } from 'node:fs';
import { join } from 'node:path';

/** Runs a program to its end; what it says is part of the error when it fails. */
export function run(program, args, options = {}) {
    const { status, error, stdout, stderr } = spawnSync(program, args, {
        encoding: 'utf8',
        ...options,
    });
    if (error) throw new Error(`${program}: ${error.message}`);
    if (status !== 0) {
        const said = `${stderr}${stdout}`.trim().split('\n').slice(-12).join('\n');
        throw new Error(`${program} ${args[0]} failed:\n${said}`);
    }
    return stdout;
}

const networkFailure =
    /\b(ENOTFOUND|EAI_AGAIN|ECONNREFUSED|ECONNRESET|ENETUNREACH|EHOSTUNREACH|E?TIMEDOUT)\b/;

/** Runs npm; that its registry cannot be reached is told in words. */
export function npm(args, options) {
    try {
        run('npm', [...args, '--loglevel=error', '--no-audit', '--no-fund'], options);
    } catch (error) {
        const [code] = error.message.match(networkFailure) ?? [];
        if (!code) throw error;
        throw new Error(
            `The registry of npm packages cannot be reached (${code}). Is there a network? ` +
                'What has arrived whole is kept: the same command fetches the rest.',
            { cause: error },
        );
    }
}

/**
 * Unpacks some files of a package of exactly the pinned contents.
 *
 * @param {{name: string, version: string, integrity: string}} pin integrity "sha512-" + base64
 * @param {string[]} files their paths in the package
 * @param {string} work an empty folder; the files are in its folder "package" afterwards
 * @throws {Error} when it cannot be had, or is not what was pinned
 */
export function unpackPackage({ name, version, integrity }, files, work) {
    npm(['pack', '--ignore-scripts', '--pack-destination', work, `${name}@${version}`], {
        cwd: work,
    });
    const archive = join(work, `${name.replace('@', '').replace('/', '-')}-${version}.tgz`);
    const digest = createHash('sha512').update(readFileSync(archive)).digest('base64');
    if (`sha512-${digest}` !== integrity)
        throw new Error(
            `${name} ${version} is not what it was when it was chosen: its hash differs`,
        );
    run('tar', ['-xzf', archive, '-C', work, ...files.map((file) => `package/${file}`)]);
}
