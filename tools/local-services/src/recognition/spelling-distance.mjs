// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/**
 * How many letters have to be put in, left out, replaced or swapped with their neighbour to get
 * from one text to the other.
 */
export function editDistance(a, b) {
    let beforeLast = [];
    let last = Array.from({ length: b.length + 1 }, (_, index) => index);
    for (let i = 1; i <= a.length; ++i) {
        const row = [i];
        for (let j = 1; j <= b.length; ++j) {
            const isSame = a[i - 1] === b[j - 1];
            row[j] = Math.min(last[j] + 1, row[j - 1] + 1, last[j - 1] + (isSame ? 0 : 1));
            const isSwapped = i > 1 && j > 1 && a[i - 1] === b[j - 2] && a[i - 2] === b[j - 1];
            if (isSwapped) row[j] = Math.min(row[j], beforeLast[j - 2] + 1);
        }
        beforeLast = last;
        last = row;
    }
    return last[b.length];
}

// Spellings of one sound, before single letters.
const spellings = [
    [/chr/g, 'kr'],
    [/sch/g, 'sk'],
    [/^(kn|gn|pn)/, 'n'],
    [/^wr/, 'r'],
    [/^x/, 's'],
    [/mb$/, 'm'],
    [/tch/g, 'c'],
    [/(sh|ch)/g, 'c'],
    [/ph/g, 'f'],
    [/gh(?=[^aeiou]|$)/g, ''],
    [/ck/g, 'k'],
    [/qu?/g, 'k'],
    [/x/g, 'ks'],
    [/c(?=[eiy])/g, 's'],
    [/(?<!^)c(?![a-z])/g, 'k'],
    [/wh/g, 'w'],
    [/th/g, 't'],
    [/dg/g, 'j'],
];
// Sounds that recognisers mix up.
const groups = { b: 'p', d: 't', g: 'k', v: 'f', z: 's', c: 's', j: 's' };

/**
 * The consonants of a word as they sound, roughly: words that sound alike have the same. Voiced and
 * unvoiced sounds are one.
 *
 * @param {string} word in lower-case Latin letters
 */
export function soundOf(word) {
    let sound = word.replace(/c(?=[aouklrt]|$)/g, 'k');
    for (const [pattern, replacement] of spellings) sound = sound.replace(pattern, replacement);
    return sound
        .replace(/(?<=.)[aeiouyhw]/g, '')
        .replace(/^[aeiouy]/, 'a')
        .replace(/[bdgvzcj]/g, (letter) => groups[letter])
        .replace(/(.)\1+/g, '$1');
}
