// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { existsSync } from 'node:fs';

import { engineFolder } from '../settings/folders.mjs';
import { origin } from '../settings/service-address.mjs';
import { readSettings } from '../settings/settings.mjs';
import { portHolder } from '../setup/port-holder.mjs';
import { isSwitchedOn } from '../setup/switch.mjs';
import { hasServiceManager, isWaiting } from '../setup/systemd.mjs';
import { recognitionFor } from './descriptions.mjs';

const say = (text) => process.stdout.write(`${text}\n`);

const yesNo = (is) => (is ? 'yes' : 'no');

/** What runs on the port, as a sentence. */
async function whatRuns(settings) {
    if (isWaiting()) return 'nothing; the first dictation starts them';
    const { isFree, companion } = await portHolder(settings);
    if (companion) {
        const since = new Date(companion.since).toLocaleString('sv');
        return `the local services, process ${companion.process}, since ${since}`;
    }
    if (!isFree)
        return 'a stranger, who would hear what you say; scripts/local enable takes another port';
    return hasServiceManager()
        ? 'nothing, and nothing would start them: scripts/local enable'
        : 'nothing; start them with: scripts/local serve';
}

/** Tells what is installed, whether the application uses it, and what runs. Starts nothing. */
export async function status() {
    const settings = readSettings();
    say(`Engine installed: ${yesNo(existsSync(engineFolder()))}`);
    say(`Recognition: ${recognitionFor(settings?.language ?? 'auto')}`);
    say(`Used by Wrenfold: ${yesNo(settings && isSwitchedOn(settings))}`);
    if (settings) say(`Running on ${origin(settings.port)}: ${await whatRuns(settings)}`);
}
