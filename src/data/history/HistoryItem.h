// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>
#include <QUuid>

// One dictation whose polishing succeeded.
struct HistoryItem
{
    QUuid id;
    // In the file: seconds with fraction since 2001-01-01 00:00:00 UTC.
    QDateTime createdAt;
    // The part of a second that createdAt is too coarse for, at most half a millisecond either way:
    // kept so that an item goes back into the file as it was read.
    double createdAtRemainder = 0;
    QString transcript;
    QString polished;

    bool operator==(const HistoryItem &) const = default;
};
