// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "LocalizedError.h"

// A file operation that the system refused, with the path and the system's reason.
class FileError final : public LocalizedError
{
public:
    // `action` completes "Cannot …", as in "read"; `errorNumber` is the value of errno.
    FileError(const QString &action, const QString &path, int errorNumber);
};
