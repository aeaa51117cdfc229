// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <optional>
#include <set>

class X11Connection;

// The keys that fingers hold down, by X key code: those of every real keyboard, without keys that
// programs posted. The connection must have been introduced to the input extension.
[[nodiscard]] std::set<quint8> physicalKeysDown(X11Connection &connection);

// The device that posted keys come from, by its number; absent when the display cannot tell. The
// connection must have been introduced to the input extension.
[[nodiscard]] std::optional<quint8> keyboardForPostedKeys(X11Connection &connection);
