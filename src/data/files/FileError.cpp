// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "FileError.h"

using namespace Qt::StringLiterals;

FileError::FileError(const QString &action, const QString &path, int errorNumber)
    : LocalizedError(u"Cannot %1 %2: %3."_s.arg(action, path, qt_error_string(errorNumber)))
{}
