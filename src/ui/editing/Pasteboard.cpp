// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Pasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

std::optional<QString> plainTextFromPasteboard()
{
    const auto *content = QGuiApplication::clipboard()->mimeData();
    // Also null when the application that offers a text does not hand it over.
    const auto text = content ? content->text() : QString();
    return text.isNull() ? std::nullopt : std::optional(text);
}
