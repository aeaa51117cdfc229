// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// Gives back what this process holds in memory but does not need now: what is free inside the heap,
// and the pages it has of files (fonts, code), which stay in the system's cache and come back, in
// microseconds each, when they are touched. Takes some milliseconds.
void releaseUnusedMemory();
