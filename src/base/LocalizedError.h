// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

// An error with a description for people; the root of every error of our own.
class LocalizedError : public std::exception
{
public:
    explicit LocalizedError(const QString &description);

    // The message for the user and the log, never empty.
    [[nodiscard]] QString localizedDescription() const { return m_description; }
    [[nodiscard]] const char *what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_description;
    QByteArray m_utf8;
};

// The description of any caught exception: a LocalizedError's own, else what(), else a fixed text
// for something that is no std::exception. `error` must not be null.
[[nodiscard]] QString localizedDescription(const std::exception_ptr &error);
