// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class Clipboard;

// Puts text on the clipboard, for the user to paste where they like. Main thread only.
namespace ClipboardWriter {

// Whether the write succeeded is not looked at.
void copy(const QString &text, Clipboard &clipboard);

} // namespace ClipboardWriter
