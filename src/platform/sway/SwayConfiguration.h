// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <optional>

// The key bindings of the default mode that a sway configuration makes.
class SwayConfiguration final
{
public:
    // Reads a configuration and what it includes; relative paths start in `folder`.
    SwayConfiguration(const QString &text, QString folder);

    // The command that one of these keys, by any of the names the configuration may have for it
    // (symbols, or a key code), is bound to with exactly these modifiers, a mask of StoredModifier
    // bits; absent when none is.
    [[nodiscard]] std::optional<QString> commandOf(const QStringList &keys,
                                                   quint32 modifiers) const;

private:
    void read(const QString &text, int depth);
    void readLine(QString line, int depth);
    void include(const QString &pattern, int depth);
    void readBinding(const QString &command, QStringList words);

    QString m_folder;
    // Of names that begin alike the longest is meant, and comes first.
    std::map<QString, QString, std::greater<>> m_variables;
    QStringList m_blocks; // what the open braces belong to
    std::map<std::pair<QString, quint32>, QString> m_bindings; // keys are in lower case
};
