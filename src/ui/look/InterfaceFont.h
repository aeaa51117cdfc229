// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

// The desktop's interface font at a size in pixels. Chinese text is drawn with Chinese glyph forms:
// left to itself the fallback takes a Japanese face.
[[nodiscard]] QFont interfaceFont(int pixelSize, QFont::Weight weight = QFont::Normal);
// The same for the desktop's monospaced font.
[[nodiscard]] QFont monospacedFont(int pixelSize, QFont::Weight weight = QFont::Normal);
