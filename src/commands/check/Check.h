// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

struct Backends;

// Prints what of a dictation works here and what not, a line for each part of it, and what to do.
// `isOnline`: the services are asked too. Returns the status to exit with, 0 when a dictation will
// work. Needs the application object.
[[nodiscard]] int runCheck(const Backends &backends, bool isOnline);
