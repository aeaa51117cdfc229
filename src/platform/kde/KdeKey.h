// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

// A combination as KDE's hotkey service numbers it, which goes by what the key types on the user's
// keyboard (`characters`). A modifier key on its own has no side. Absent for keys without a number.
[[nodiscard]] std::optional<int>
kdeKey(quint32 virtualKeyCode, quint32 modifiers, const QString &characters);
