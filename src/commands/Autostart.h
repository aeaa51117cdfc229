// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The user's own entry by which the session starts Wrenfold without its window.
namespace Autostart {

// Where the entry is or would be.
[[nodiscard]] QString entryPath();
[[nodiscard]] bool isOn();
// Writes the entry, which starts `program`, an absolute path. Throws FileError.
void turnOn(const QString &program);
// Removes it, if there is one. Throws FileError.
void turnOff();

} // namespace Autostart
