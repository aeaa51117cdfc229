// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

// The names that a sway configuration may have for a key: its code, its symbol on an American
// keyboard and the symbol of what it types on the user's.
[[nodiscard]] QStringList swayKeyNames(quint32 virtualKeyCode, const QString &characters);
