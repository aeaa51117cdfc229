// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What a key types on the current layout without modifiers, the keypad as with Num Lock. Empty when
// it types nothing by itself, as function keys and dead keys, and when Qt is not on X11.
[[nodiscard]] QString charactersTypedBy(quint32 virtualKeyCode);
