// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ClipboardWriter.h"

#include "Clipboard.h"

void ClipboardWriter::copy(const QString &text, Clipboard &clipboard)
{
    static_cast<void>(clipboard.offer(text, ClipboardSelections::Clipboard));
}
