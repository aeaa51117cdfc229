// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// A hotkey's display name ("⌘⇧Space", "右⌥") in the words on this desktop's keyboards
// ("Super+Shift+Space", "右 Alt").
[[nodiscard]] QString hotKeyInWords(const QString &displayName);
