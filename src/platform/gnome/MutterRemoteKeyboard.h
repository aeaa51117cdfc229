// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <vector>

// Keys pressed by the compositor of GNOME, in whichever window has the focus. It shows an icon for
// at least five seconds, and refuses while the screen is locked.
namespace MutterRemoteKeyboard {

// Whether this session has such a compositor. Needs an application object.
[[nodiscard]] bool isThere();

// Presses the keys, by the kernel's codes, in their order and releases them in reverse, which takes
// about 25 ms a key. False when it was refused. Any thread but the main one.
[[nodiscard]] bool tap(const std::vector<quint32> &chord);

} // namespace MutterRemoteKeyboard
