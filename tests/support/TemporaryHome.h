// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

#include <vector>

// A private, empty HOME and XDG_RUNTIME_DIR for one test; both are put back afterwards.
class TemporaryHome final
{
public:
    TemporaryHome();
    ~TemporaryHome();
    TemporaryHome(const TemporaryHome &) = delete;
    TemporaryHome &operator=(const TemporaryHome &) = delete;

    // The home directory, or a path inside it.
    [[nodiscard]] QString path(const QString &relative = {}) const;
    // The temporary files' directory, or a path inside it.
    [[nodiscard]] QString runtimePath(const QString &relative = {}) const;
    // A whole file; empty when there is none.
    [[nodiscard]] QByteArray read(const QString &relative) const;
    // Writes a whole file, with the folders it needs.
    void write(const QString &relative, const QByteArray &content) const;

private:
    QTemporaryDir m_home;
    QTemporaryDir m_runtime;
    std::vector<std::pair<const char *, QByteArray>> m_saved;
};

// The names of the recordings that lie in the directory for temporary files.
[[nodiscard]] QStringList recordings();
