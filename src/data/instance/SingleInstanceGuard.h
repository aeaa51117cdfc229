// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FileDescriptor.h"

#include <QString>
#include <QUrl>

// Keeps one instance a user: an exclusive advisory lock on a small file in the user's temporary
// directory, which the system drops when the process ends. Main thread only.
class SingleInstanceGuard final
{
public:
    // Computes the lock file's place, "<identifier>.lock" in the user's temporary directory; opens
    // nothing.
    explicit SingleInstanceGuard(const QString &identifier);
    ~SingleInstanceGuard();
    SingleInstanceGuard(const SingleInstanceGuard &) = delete;
    SingleInstanceGuard &operator=(const SingleInstanceGuard &) = delete;

    // Empty when the user has no safe temporary directory.
    [[nodiscard]] const QUrl &lockURL() const { return m_lockURL; }

    // True when this process may run: it holds the lock, or the lock file could not be opened at
    // all. False when another process holds it.
    [[nodiscard]] bool acquire();
    // Gives the lock up; safe when it is not held. The file stays.
    void release();

private:
    QUrl m_lockURL;
    FileDescriptor m_lockFile;
};
