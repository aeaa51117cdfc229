// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// What a user can ask the companion to do, on a terminal.

import { parseArgs } from 'node:util';

import { listModels } from '../recognition/models.mjs';
import { serve } from '../service/serve.mjs';
import {
    applicationFile,
    engineFolder,
    modelsFolder,
    replacedFile,
    settingsFile,
    socketFile,
} from '../settings/folders.mjs';
import { ownName } from '../settings/own-name.mjs';
import { idleTime } from '../settings/service-limits.mjs';
import { makeKey, readSettings, writeSettings } from '../settings/settings.mjs';
import { allOrNothing } from '../setup/all-or-nothing.mjs';
import {
    installEngine,
    installModels,
    installProgram,
    removeDownloads,
} from '../setup/install.mjs';
import { switchOff, switchOn, valuesToKeep } from '../setup/switch.mjs';
import { checkNode, hasServiceManager, startListening, stopListening } from '../setup/systemd.mjs';
import { recognitionFor } from './descriptions.mjs';

const say = (text) => process.stdout.write(`${text}\n`);

const parsed = (args, options) => parseArgs({ args, options }).values;

/** Fetches and installs what is missing: engine, English model, and this program. */
export async function install() {
    if (await installEngine()) say(`Installed the engine: ${engineFolder()}`);
    for (const name of await installModels())
        say(`Installed the model ${name}: ${modelsFolder()}/${name}`);
    removeDownloads();
    installProgram();
}

function switchAndListen(settings, earlier, isManaged) {
    try {
        allOrNothing([settingsFile(), replacedFile(), applicationFile()], () => {
            writeSettings(settings);
            if (isManaged) startListening(settings.socket);
            switchOn(settings, earlier);
        });
    } catch (error) {
        if (isManaged && earlier?.socket) startListening(earlier.socket);
        else stopListening();
        throw error;
    }
}

/**
 * Installs what is missing and has the application use the companion: --language auto, or the code
 * of one language. What can refuse it is asked before anything is changed.
 */
export async function enable(args) {
    const { language } = parsed(args, { language: { type: 'string', default: 'auto' } });
    if (!/^(auto|[a-z]{2,3})$/.test(language))
        throw new Error('the language is "auto" or a code like "zh"');
    const earlier = readSettings();
    valuesToKeep(earlier);
    const isManaged = hasServiceManager();
    if (isManaged) checkNode();
    const { key = makeKey() } = earlier ?? {};
    const settings = { key, language, socket: socketFile() };
    await install();
    switchAndListen(settings, earlier, isManaged);
    say(`${applicationFile()} now leads to the local services, ${settings.socket}.`);
    say(`Recognition: ${recognitionFor(language)}.`);
    say(
        isManaged
            ? 'They start by themselves with the first dictation.'
            : `There is no service manager of yours here. Start them with: ${ownName} serve`,
    );
}

/** Has the application use again what it used before `enable`. */
export function disable() {
    const kept = switchOff(readSettings());
    stopListening();
    say(`${applicationFile()} leads where it did before.`);
    for (const path of kept) say(`Left as it is, since it was changed meanwhile: ${path}`);
}

/** Lists the models, usable or not. */
export function models() {
    const found = listModels(modelsFolder());
    if (!found.length) say(`There are none; "${ownName} install" brings an English one.`);
    for (const { name, model, problem } of found)
        say(
            model
                ? `${name}: ${model.type}, ${model.languages.join(' ')}, licence ${model.licence}`
                : `${name}: cannot be used: ${problem}`,
        );
    say(`Each has a folder in ${modelsFolder()}`);
}

/** Serves in the foreground. */
export async function serveHere(args) {
    const { idle } = parsed(args, { idle: { type: 'string', default: String(idleTime) } });
    const settings = readSettings();
    if (!settings?.socket) throw new Error(`enable the local services first: ${ownName} enable`);
    await serve(settings, Number(idle));
}
