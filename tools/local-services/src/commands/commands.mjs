// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// What a user can ask the companion to do, on a terminal.

import { randomBytes } from 'node:crypto';
import { once } from 'node:events';
import { existsSync } from 'node:fs';
import { createServer } from 'node:net';
import { parseArgs } from 'node:util';

import { listModels } from '../recognition/models.mjs';
import { serve } from '../service/serve.mjs';
import { applicationFile, engineFolder, modelsFolder } from '../settings/folders.mjs';
import { host, origin, usualPort } from '../settings/service-address.mjs';
import { idleTime } from '../settings/service-limits.mjs';
import { readSettings, writeSettings } from '../settings/settings.mjs';
import { installEngine, installModels, installProgram } from '../setup/install.mjs';
import { isSwitchedOn, switchOff, switchOn } from '../setup/switch.mjs';
import { hasServiceManager, startListening, stopListening } from '../setup/systemd.mjs';

const say = (text) => process.stdout.write(`${text}\n`);

const parsed = (args, options) => parseArgs({ args, options }).values;

/** Whether nobody listens there. */
async function isFree(port) {
    const probe = createServer();
    probe.listen({ host, port });
    const [result] = await Promise.race([
        once(probe, 'listening').then(() => [true]),
        once(probe, 'error').then(() => [false]),
    ]);
    await new Promise((resolve) => probe.close(resolve));
    return result;
}

async function freePort() {
    if (await isFree(usualPort)) return usualPort;
    const probe = createServer().listen({ host, port: 0 });
    await once(probe, 'listening');
    const { port } = probe.address();
    probe.close();
    await once(probe, 'close');
    return port;
}

/** Fetches and installs what is missing: engine, English model, and this program. */
export async function install() {
    if (installEngine()) say(`Installed the engine: ${engineFolder()}`);
    for (const name of await installModels())
        say(`Installed the model ${name}: ${modelsFolder()}/${name}`);
    installProgram();
}

/** Has the application use the companion: --language auto, or the code of one language. */
export async function enable(args) {
    const { language } = parsed(args, { language: { type: 'string', default: 'auto' } });
    if (!/^(auto|[a-z]{2,3})$/.test(language))
        throw new Error('the language is "auto" or a code like "zh"');
    const fresh = { key: `local-${randomBytes(24).toString('base64url')}` };
    const kept = readSettings() ?? { ...fresh, port: await freePort() };
    const settings = { ...kept, language };
    writeSettings(settings);
    switchOn(settings);
    say(`${applicationFile()} now leads to the local services, ${origin(settings.port)}.`);
    if (hasServiceManager()) {
        startListening(settings.port);
        say('They start by themselves with the first dictation.');
    } else {
        say('There is no service manager of yours here. Start them with: scripts/local serve');
    }
}

/** Has the application use again what it used before `enable`. */
export function disable() {
    const settings = readSettings();
    if (!settings) throw new Error('the local services were never enabled');
    const kept = switchOff(settings);
    stopListening();
    say(`${applicationFile()} leads where it did before.`);
    for (const path of kept) say(`Left as it is, since it was changed meanwhile: ${path}`);
}

const yesNo = (is) => (is ? 'yes' : 'no');

/** Tells what is installed, and whether the application uses it. Connects nowhere. */
export async function status() {
    const settings = readSettings();
    say(`Engine installed: ${yesNo(existsSync(engineFolder()))}`);
    const usable = listModels(modelsFolder()).filter(({ model }) => model);
    say(`Models: ${usable.map(({ name }) => name).join(', ') || 'none'}`);
    say(`Used by Wrenfold: ${yesNo(settings && isSwitchedOn(settings))}`);
    if (settings)
        say(`Listening on ${origin(settings.port)}: ${yesNo(!(await isFree(settings.port)))}`);
}

/** Lists the models, usable or not. */
export function models() {
    const found = listModels(modelsFolder());
    if (!found.length) say('There are none; "scripts/local install" brings an English one.');
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
    if (!settings) throw new Error('enable the local services first: scripts/local enable');
    if (!existsSync(engineFolder())) throw new Error('not installed: scripts/local install');
    await serve(settings, Number(idle));
}
