// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { existsSync, readdirSync, readFileSync } from 'node:fs';
import { basename, join } from 'node:path';

import { modelTypes } from './model-types.mjs';

/** A model folder that cannot be used; the message says why. */
export class ModelError extends Error {}

function manifestOf(folder) {
    let manifest;
    try {
        manifest = JSON.parse(readFileSync(join(folder, 'manifest.json'), 'utf8'));
    } catch (error) {
        throw new ModelError(`manifest.json: ${error.message}`);
    }
    if (manifest === null || typeof manifest !== 'object')
        throw new ModelError('manifest.json: not a JSON object');
    return manifest;
}

function filePath(folder, role, name) {
    if (typeof name !== 'string' || !name || name !== basename(name) || name.startsWith('.'))
        throw new ModelError(`the manifest names no file for "${role}"`);
    const path = join(folder, name);
    if (!existsSync(path)) throw new ModelError(`there is no file ${name}`);
    return path;
}

/**
 * Reads and checks a model's manifest.
 *
 * @param {string} folder
 * @returns {{name: string, type: string, languages: string[], licence: string,
 *     description: string, modelingUnit?: string, files: Object<string, string>}} files by their
 *     roles, with whole paths
 * @throws {ModelError}
 */
export function readModel(folder) {
    const { type, languages, licence, description = '', files, modelingUnit } = manifestOf(folder);
    const known = typeof type === 'string' && Object.hasOwn(modelTypes, type) && modelTypes[type];
    if (!known) throw new ModelError(`the type is none of ${Object.keys(modelTypes).join(', ')}`);
    if (!Array.isArray(languages) || !languages.length || !languages.every(isLanguageCode))
        throw new ModelError('the manifest does not name the languages');
    if (typeof licence !== 'string' || !licence)
        throw new ModelError('the manifest does not name the licence');
    for (const text of [description, modelingUnit ?? ''])
        if (typeof text !== 'string')
            throw new ModelError('the description or the modelingUnit is no text');
    const optional = (known.optionalFiles ?? []).filter((role) => files?.[role] !== undefined);
    const paths = [...known.files, ...optional].map((role) => [
        role,
        filePath(folder, role, files?.[role]),
    ]);
    return {
        name: basename(folder),
        type,
        languages,
        licence,
        description,
        modelingUnit,
        files: Object.fromEntries(paths),
    };
}

const isLanguageCode = (value) => typeof value === 'string' && /^[a-z]{2,3}$/.test(value);

/**
 * All folders with models, by name, usable or not.
 *
 * @returns {{name: string, model?: object, problem?: string}[]}
 */
export function listModels(folder) {
    if (!existsSync(folder)) return [];
    const names = readdirSync(folder, { withFileTypes: true })
        .filter((entry) => !entry.isFile() && !entry.name.startsWith('.'))
        .map((entry) => entry.name);
    return names.sort().map((name) => {
        try {
            return { name, model: readModel(join(folder, name)) };
        } catch (error) {
            if (!(error instanceof ModelError)) throw error;
            return { name, problem: error.message };
        }
    });
}

/**
 * The model to use for a language. For `auto` the one that knows the most languages, for a language
 * the one that knows the fewest others.
 *
 * @returns {object|undefined} nothing when no model knows the language
 */
export function chooseModel(models, language) {
    const byBreadth = [...models].sort((a, b) => a.languages.length - b.languages.length);
    if (language === 'auto') return byBreadth.at(-1);
    return byBreadth.find(({ languages }) => languages.includes(language));
}

const names = new Intl.DisplayNames(['en'], { type: 'language' });

/** What a model understands, for a user to read, such as "English only". */
export function languagesOf({ languages }) {
    const known = languages.map((code) => names.of(code)).join(', ');
    return languages.length === 1 ? `${known} only` : known;
}
