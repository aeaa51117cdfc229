// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

const setOf = (text) => new Set(text.split(/\s+/).filter(Boolean));

/** English words after which an ordinary word stands more likely than a name. */
export const determiners = setOf(`
a an the this that these those my your his her its our their whose some any no every each another
what which`);

/** English words after which a name without an article is likely. */
export const namingWords = setOf('use uses used using via');

/**
 * English words in lower case that hold sentences together, the commonest verbs among them: they
 * are part of no term that is heard in pieces, and never mean one.
 */
export const functionWords = new Set([
    ...determiners,
    ...setOf(`
about above after again all almost also although always am among and are around as at away back be
because been before behind being below between both but by came can cannot come could did do does
doing done down during either else even ever few for from gave get gets getting give go goes going
gone got had has have having he here hers him how however i if in into is it just last least less
let like made make many may maybe me might mine more most much must near neither never next nor not
now of off often on once one only onto or other others ought out over own perhaps put quite rather
said same saw say see she should since so soon still such take than their them then there they
though through to together too took toward two under until up upon us very was we well went were
when where whether while who whom why will with within without would yes yet you yours zero three
four five six seven eight nine ten`),
]);
