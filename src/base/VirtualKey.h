// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

// The keys that are spoken of by name, by the virtual key codes of stored hotkeys, which use the
// numbering of macOS: the key's position, whatever the layout. The modifier keys stand
// in ModifierKeys.h.
namespace VirtualKey {

inline constexpr quint32 returnKey = 36;
inline constexpr quint32 tab = 48;
inline constexpr quint32 space = 49;
inline constexpr quint32 backspace = 51;
inline constexpr quint32 escape = 53;
inline constexpr quint32 forwardDelete = 117;
inline constexpr quint32 left = 123;
inline constexpr quint32 right = 124;
inline constexpr quint32 down = 125;
inline constexpr quint32 up = 126;

// F1 to F20, in their order.
inline constexpr quint32 functionKeys[] = {122, 120, 99,  118, 96,  97,  98, 100, 101, 109,
                                           103, 111, 105, 107, 113, 106, 64, 79,  80,  90};

} // namespace VirtualKey
