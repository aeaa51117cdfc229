// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Puts text on the system clipboard as its only representation, while a window of our own has the
// focus: on some desktops nobody else may. Main thread only.
namespace ClipboardWriter {

// Whether the write succeeded is not looked at.
void copy(const QString &text);

} // namespace ClipboardWriter
