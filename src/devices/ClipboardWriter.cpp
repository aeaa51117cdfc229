// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ClipboardWriter.h"

#include <QClipboard>
#include <QGuiApplication>

void ClipboardWriter::copy(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}
