// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { spawnSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import { existsSync, mkdirSync, readFileSync, renameSync, rmSync } from 'node:fs';
import { basename, join } from 'node:path';

import { download } from './download.mjs';
import { Progress } from './progress.mjs';

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

/** Runs npm. */
export const npm = (args, options) =>
    run('npm', [...args, '--loglevel=error', '--no-audit', '--no-fund'], options);

/** Where packages are, and how to get there, as the user has set it for npm. */
function registry() {
    const settings = JSON.parse(npm(['config', 'ls', '--json']));
    const options = [];
    if (settings.cafile) options.push('--cacert', settings.cafile);
    if (settings['https-proxy']) options.push('--proxy', settings['https-proxy']);
    return { address: settings.registry.replace(/\/*$/, ''), options };
}

function isAsPinned(path, integrity) {
    if (!existsSync(path)) return false;
    return (
        integrity === `sha512-${createHash('sha512').update(readFileSync(path)).digest('base64')}`
    );
}

async function fetchPackage({ name, version, integrity }, path) {
    const part = `${path}.part`;
    const { address, options } = registry();
    const url = `${address}/${name}/-/${basename(name)}-${version}.tgz`;
    await download(url, part, options, new Progress(`Fetching ${name} ${version}`));
    if (!isAsPinned(part, integrity)) {
        rmSync(part);
        throw new Error(
            `${name} ${version} is not what it was when it was chosen: its hash differs`,
        );
    }
    renameSync(part, path);
}

/**
 * Fetches what of packages is not in a folder yet, each of exactly the pinned contents.
 *
 * @param {{name: string, version: string, integrity: string}[]} pins integrity "sha512-" + base64
 * @param {string} folder keeps what has arrived, whole or not
 * @returns {Promise<string[]>} the archives, in the order of the pins
 * @throws {Error} when one cannot be had, or is not what was pinned
 */
export async function fetchPackages(pins, folder) {
    mkdirSync(folder, { recursive: true });
    const paths = [];
    for (const pin of pins) {
        const path = join(folder, `${pin.name.replace('/', '-')}-${pin.version}.tgz`);
        if (!isAsPinned(path, pin.integrity)) await fetchPackage(pin, path);
        paths.push(path);
    }
    return paths;
}

/** Unpacks some files, by their paths in the package, of an archive into a folder "package". */
export function unpackPackage(archive, files, work) {
    run('tar', ['-xzf', archive, '-C', work, ...files.map((file) => `package/${file}`)]);
}
