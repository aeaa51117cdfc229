// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QStringList>

#include <chrono>

// The application's log as it grows, through every rotation.
class SoakLog final
{
public:
    // From here on lines() begins.
    void mark();
    // The lines since the mark.
    [[nodiscard]] const QStringList &lines();
    [[nodiscard]] bool has(const QString &text) { return !lines().filter(text).isEmpty(); }
    // Waits for a line since the mark that contains one of the texts.
    [[nodiscard]] bool await(const QStringList &texts,
                             std::chrono::milliseconds limit = std::chrono::seconds(10));

private:
    void read();
    [[nodiscard]] bool hasBeenMoved() const;

    QFile m_file;
    QByteArray m_unfinished;
    QStringList m_lines;
};
