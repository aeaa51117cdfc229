// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

// The names that a desktop may know a key by: its code, its symbol on an American keyboard and the
// symbol of what it types on the user's, unless it types nothing. Empty for no key.
[[nodiscard]] QStringList keyNames(quint32 virtualKeyCode, const QString &characters);
