// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// Downloads by curl, which knows the proxies and certificates of this machine.

import { spawn } from 'node:child_process';
import { existsSync, readFileSync, rmSync, statSync } from 'node:fs';

const interval = 200; // milliseconds between two looks at how far it is

const noRangeSupport = 33; // curl's own
const networkFailures = [5, 6, 7, 18, 28, 35, 52, 55, 56];

const sizeOf = (path) => (existsSync(path) ? statSync(path).size : 0);

/** What the headers of the last answer say of the status and of the size of the whole file. */
function answerOf(path) {
    const text = existsSync(path) ? readFileSync(path, 'utf8') : '';
    const answer = text.slice(Math.max(0, text.lastIndexOf('HTTP/')));
    const [, size] =
        answer.match(/^content-range: *bytes \d+-\d+\/(\d+)/im) ??
        answer.match(/^content-length: *(\d+)/im) ??
        [];
    return { status: Number(answer.match(/^HTTP\/\S+ (\d+)/)?.[1] ?? 0), size: Number(size ?? 0) };
}

function curl(args) {
    return new Promise((resolve, reject) => {
        const child = spawn('curl', args, { stdio: ['ignore', 'ignore', 'pipe'] });
        let said = '';
        child.stderr.on('data', (text) => (said += text));
        child.on('error', (error) => reject(new Error(`curl: ${error.message}`)));
        child.on('close', (status) => resolve({ status, said: said.trim() }));
    });
}

async function attempt(url, path, options, progress) {
    const headers = `${path}.headers`;
    const timer = setInterval(() => {
        const { status, size } = answerOf(headers);
        if (status === 200 || status === 206) progress.update(sizeOf(path), size);
    }, interval);
    const limits = ['--connect-timeout', '20', '--speed-limit', '1', '--speed-time', '60'];
    const files = ['--continue-at', '-', '--output', path, '--dump-header', headers];
    try {
        const result = await curl(
            [
                '--silent',
                '--show-error',
                '--fail',
                '--location',
                limits,
                files,
                options,
                url,
            ].flat(),
        );
        const answer = answerOf(headers);
        if (result.status === 0) progress.update(sizeOf(path), answer.size);
        return { ...result, answer };
    } finally {
        clearInterval(timer);
        progress.end();
        rmSync(headers, { force: true });
    }
}

/**
 * Downloads a file, beginning where an earlier call had to stop.
 *
 * @param {string} url
 * @param {string} path what has arrived is there, after a failure too
 * @param {string[]} options more of curl's
 * @param {Progress} progress is told how far it is
 * @throws {Error} in words for the user
 */
export async function download(url, path, options, progress) {
    let { status, said, answer } = await attempt(url, path, options, progress);
    // What is there is no beginning of it, or the server only sends the whole.
    if (status === noRangeSupport || answer.status === 416) {
        rmSync(path, { force: true });
        ({ status, said, answer } = await attempt(url, path, options, progress));
    }
    if (networkFailures.includes(status))
        throw new Error(
            `The registry of npm packages cannot be reached (${said}). Is there a network? ` +
                'What has arrived is kept: the same command fetches the rest.',
        );
    if (status !== 0) throw new Error(`${url} cannot be had: ${said}`);
}
