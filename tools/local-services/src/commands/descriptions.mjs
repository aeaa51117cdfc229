// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { chooseModel, listModels } from '../recognition/models.mjs';
import { modelsFolder } from '../settings/folders.mjs';

const names = new Intl.DisplayNames(['en'], { type: 'language' });

/** What speech in a language, or `auto`, is recognised with, for a user to read. */
export function recognitionFor(language) {
    const usable = listModels(modelsFolder()).flatMap(({ model }) => model ?? []);
    const model = chooseModel(usable, language);
    if (!model) return `no model for the language "${language}", see: scripts/local models`;
    const known = model.languages.map((code) => names.of(code)).join(', ');
    return `${known}${model.languages.length === 1 ? ' only' : ''} (model ${model.name})`;
}
