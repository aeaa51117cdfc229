// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Pasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

std::optional<QString> plainTextFromPasteboard()
{
    const auto *content = QGuiApplication::clipboard()->mimeData();
    if (!content || !content->hasText())
        return {};
    return content->text();
}
