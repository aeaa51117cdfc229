// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

// Settings of the paste. The field is kept with the file; no step of the paste reads it.
struct PasteConfig
{
    qint64 restoreClipboardAfterMilliseconds = 900;

    bool operator==(const PasteConfig &) const = default;
};
