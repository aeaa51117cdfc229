// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { dirname, join } from 'node:path';

import { engineOptions } from '../../tools/local-services/src/recognition/model-types.mjs';
import { ModelError, readModel } from '../../tools/local-services/src/recognition/models.mjs';

export { ModelError as Refusal };

const folder = mkdtempSync(join(tmpdir(), 'wrenfold-fuzz-'));
process.on('exit', () => rmSync(folder, { recursive: true }));
for (const name of ['model', 'tokens']) writeFileSync(join(folder, name), '');

export function fuzz(bytes) {
    writeFileSync(join(folder, 'manifest.json'), bytes);
    const model = readModel(folder);
    for (const path of Object.values(model.files)) assert.equal(dirname(path), folder);
    assert(engineOptions(model, 'auto').modelConfig.tokens);
}
