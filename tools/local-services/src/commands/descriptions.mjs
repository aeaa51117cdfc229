// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { chooseModel, languagesOf, listModels } from '../recognition/models.mjs';
import { modelsFolder } from '../settings/folders.mjs';
import { ownName } from '../settings/own-name.mjs';

/** What speech in a language, or `auto`, is recognised with, for a user to read. */
export function recognitionFor(language) {
    const usable = listModels(modelsFolder()).flatMap(({ model }) => model ?? []);
    const model = chooseModel(usable, language);
    if (!model) return `no model for the language "${language}", see: ${ownName} models`;
    return `${languagesOf(model)} (model ${model.name})`;
}
