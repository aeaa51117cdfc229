// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/** Something has to follow these: no clause ends with one. */
export const leadingWords = new Set(
    'a an the my your our their and or but because if than'.split(' '),
);

/** Those said again after a pause so often that it is no other clause. */
export const leadingAcrossComma = new Set('i a the to of and'.split(' '));

/** They end a clause only behind an auxiliary or a comparison: "so do I", "taller than he". */
export const subjects = new Set('i we they he she'.split(' '));

/** No clause ends with these either. */
export const contractions = /^(?:i|you|we|they|he|she|it|that|there)'(?:m|ll|re|ve|d|s)$/;

/** What a leading word can begin that stands by itself: "I do not want to, to be honest". */
export const asides = /^(?:to (?:be|tell|say|put|my|our)|of course)\b/i;

/** As the leading words, in Chinese. */
export const hanLeadingWords = '然后|因为|所以|但是|如果|虽然|而且|已经';
