// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { existsSync } from 'node:fs';

import { engineFolder } from '../settings/folders.mjs';
import { ownName } from '../settings/own-name.mjs';
import { readSettings } from '../settings/settings.mjs';
import { runningCompanion } from '../setup/running-companion.mjs';
import { isSwitchedOn } from '../setup/switch.mjs';
import { hasServiceManager, isWaiting } from '../setup/systemd.mjs';
import { recognitionFor } from './descriptions.mjs';

const say = (text) => process.stdout.write(`${text}\n`);

const yesNo = (is) => (is ? 'yes' : 'no');

/** What runs on a socket, as a sentence. */
async function whatRuns(socket) {
    if (!socket) return `whoever has their port; ${ownName} enable gives them a socket of yours`;
    if (isWaiting()) return 'nothing; the first dictation starts them';
    const companion = await runningCompanion(socket);
    if (companion) {
        const since = new Date(companion.since).toLocaleString('sv');
        return `the local services, process ${companion.process}, since ${since}`;
    }
    return hasServiceManager()
        ? `nothing, and nothing would start them: ${ownName} enable`
        : `nothing; start them with: ${ownName} serve`;
}

/** Tells what is installed, whether the application uses it, and what runs. Starts nothing. */
export async function status() {
    const settings = readSettings();
    say(`Engine installed: ${yesNo(existsSync(engineFolder()))}`);
    say(`Recognition: ${recognitionFor(settings?.language ?? 'auto')}`);
    say(`Used by Wrenfold: ${yesNo(settings && isSwitchedOn(settings))}`);
    if (settings) say(`Running: ${await whatRuns(settings.socket)}`);
}
