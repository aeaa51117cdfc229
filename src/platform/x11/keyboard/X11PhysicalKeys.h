// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <set>

class X11Connection;

// The keys that fingers hold down, by X key code: those of every real keyboard, without keys that
// programs posted. The connection must have been introduced to the input extension.
[[nodiscard]] std::set<quint8> physicalKeysDown(X11Connection &connection);
