// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// Changes values inside a JSON text and leaves every other character as it is: numbers too large
// for JavaScript, spelling and order survive.

const tokens = /"(?:[^"\\]|\\.)*"|[{}[\],:]|[^\s{}[\],:"]+/gs;

/** Where the values of an object's members begin and end, by their path "outer.inner". */
function spans(text) {
    const found = new Map();
    const open = []; // { isObject, key, begin } of what surrounds the token
    const path = () => open.map(({ key }) => key).join('.');
    const close = (begin, end) => {
        if (open.every(({ isObject }) => isObject)) found.set(path(), { begin, end });
    };
    for (const { 0: token, index } of text.matchAll(tokens)) {
        const inside = open.at(-1);
        const end = index + token.length;
        if (token === '{' || token === '[') open.push({ isObject: token === '{', begin: index });
        else if (token === '}' || token === ']') close(open.pop().begin, end);
        else if (token === ':') inside.isValueNext = true;
        else if (token === ',') inside.isValueNext = false;
        else if (inside?.isObject && !inside.isValueNext) inside.key = JSON.parse(token);
        else close(index, end);
    }
    return found;
}

/**
 * Replaces the values at some paths.
 *
 * @param {string} text a JSON object
 * @param {Object<string, *>} values by their paths; each must be there already
 * @returns {string}
 * @throws {Error} when the text is no JSON object or has no such value
 */
export function replaceValues(text, values) {
    const root = JSON.parse(text);
    if (root === null || typeof root !== 'object' || Array.isArray(root))
        throw new Error('not a JSON object');
    const found = spans(text);
    const edits = Object.entries(values).map(([path, value]) => {
        if (!found.has(path)) throw new Error(`there is no "${path}"`);
        return { ...found.get(path), value: JSON.stringify(value) };
    });
    edits.sort((a, b) => b.begin - a.begin);
    return edits.reduce(
        (all, { begin, end, value }) => all.slice(0, begin) + value + all.slice(end),
        text,
    );
}

/**
 * Adds a member to the outermost object, before all others.
 *
 * @param {string} text a JSON object
 */
export function addMember(text, name, value) {
    const isEmpty = Object.keys(JSON.parse(text)).length === 0;
    const member = `${JSON.stringify(name)}: ${JSON.stringify(value, null, 2)}`;
    return text.replace('{', () => `{\n${member}${isEmpty ? '\n' : ','}`);
}
