// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// What the JavaScript files must not do; how they look is the formatter's.

import js from '@eslint/js';
import globals from 'globals';

// The folders of the local services' source, and what the files of each may use of the others.
const layers = {
    settings: [],
    polishing: [],
    recognition: ['settings'],
    service: ['settings', 'polishing', 'recognition'],
    setup: ['settings'],
};

const commands = 'commands';

/** Only imports that the architecture allows, so that they go one way. */
const layerRule = ([folder, allowed]) => {
    const others = [...Object.keys(layers), commands].filter(
        (other) => other !== folder && !allowed.includes(other),
    );
    const message = `${folder}/ does not know this folder; see docs/architecture.md.`;
    const patterns = [{ group: others.map((other) => `../${other}/*`), message }];
    return {
        files: [`tools/local-services/src/${folder}/*.mjs`],
        rules: { 'no-restricted-imports': ['error', { patterns }] },
    };
};

export default [
    { ignores: ['build/', '**/node_modules/'] },
    js.configs.recommended,
    {
        languageOptions: { globals: globals.node },
        linterOptions: { reportUnusedDisableDirectives: 'error' },
        rules: {
            'array-callback-return': 'error',
            'default-case-last': 'error',
            eqeqeq: 'error',
            'func-style': ['error', 'declaration', { allowArrowFunctions: true }],
            'no-console': 'error',
            'no-duplicate-imports': 'error',
            'no-else-return': 'error',
            'no-eval': 'error',
            'no-implicit-coercion': 'error',
            'no-lonely-if': 'error',
            'no-shadow': 'error',
            'no-template-curly-in-string': 'error',
            'no-throw-literal': 'error',
            'no-unneeded-ternary': 'error',
            'no-unused-vars': ['error', { argsIgnorePattern: '^_', varsIgnorePattern: '^_$' }],
            'no-use-before-define': ['error', { functions: false, variables: false }],
            'no-useless-concat': 'error',
            'no-useless-rename': 'error',
            'no-useless-return': 'error',
            'no-var': 'error',
            'object-shorthand': 'error',
            'prefer-arrow-callback': 'error',
            'prefer-const': 'error',
            'prefer-destructuring': ['error', { VariableDeclarator: { object: true } }],
            'prefer-object-has-own': 'error',
            'prefer-promise-reject-errors': 'error',
            'prefer-rest-params': 'error',
            'prefer-template': 'error',
            'require-await': 'error',
        },
    },
    ...Object.entries(layers).map(layerRule),
];
