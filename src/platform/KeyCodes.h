// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <optional>

// Translates between the virtual key codes of stored hotkeys, which use the numbering of macOS, and
// the kernel's key codes (linux/input-event-codes.h; an X key code is the kernel's plus 8).
//
// Keys that macOS numbers keep that number: letters, digits and punctuation by their position on
// an ANSI board, the extra key of ISO boards (10), the yen, underscore and keypad comma keys of JIS
// boards (93, 94, 95) and the Eisu and Kana keys (102, 104), F1 to F20, the keypad (71 is Num Lock,
// "Clear" on Apple's boards), the navigation keys (114 is Insert, "Help" there), the context menu
// key (110), the volume keys, both sides of the four modifiers and Caps Lock.
//
// macOS has no number for the other keys of a PC board. It reports Print, Scroll Lock and Pause as
// F13 to F15; here these are keys of their own beside F13 to F15. They, the conversion keys of
// Japanese boards, media keys and everything else are numbered 256 plus the kernel's code.
namespace KeyCodes {

// The highest kernel code a key can have on an X display.
inline constexpr quint32 highestKernelCode = 247;
// What X adds to the kernel's code.
inline constexpr quint32 displayOffset = 8;

// The kernel's code of a virtual key code; absent when it names no key an X display can have.
[[nodiscard]] std::optional<quint32> kernelCode(quint32 virtualKeyCode);
// The virtual key code of a kernel's code; absent for 0 and above highestKernelCode.
[[nodiscard]] std::optional<quint32> virtualKeyCode(quint32 kernelCode);

// The ModifierFlag bit of one of the modifier keys, by its virtual key code; 0 for other
// keys.
[[nodiscard]] quint32 modifierFlag(quint32 virtualKeyCode);

} // namespace KeyCodes
