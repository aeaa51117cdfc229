// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppLogger.h"
#include "TemporaryHome.h"

#include <QRegularExpression>

// The log in this home without times and processes, as "INFO Launch finished.".
inline QStringList loggedLines(const TemporaryHome &home)
{
    using namespace Qt::StringLiterals;
    AppLogger::drain();
    static const QRegularExpression head(u"(^|\n)\\S+ \\[(\\w+)\\] \\[pid=\\d+\\] "_s);
    return QString::fromUtf8(home.read(u".wrenfold/logs/wrenfold.log"_s))
        .replace(head, u"\\1\\2 "_s)
        .split(u'\n', Qt::SkipEmptyParts);
}
