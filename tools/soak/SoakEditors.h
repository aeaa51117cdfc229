// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

#include <array>

// Two editors of another program, of which the first has the focus, and what that program copies.
class SoakEditors final
{
public:
    SoakEditors();

    // Empties both and gives the focus to the first; whether it comes to have it.
    [[nodiscard]] bool begin();
    void focus(std::size_t editor) { m_editors[editor].activateWindow(); }
    void close(std::size_t editor) { m_editors[editor].close(); }

    // All that has arrived, in both.
    [[nodiscard]] QString text() const;
    // Takes the clipboard, and what is on it now whoever owns it.
    static void copy(const QString &text);
    [[nodiscard]] static QString copied();

private:
    std::array<QPlainTextEdit, 2> m_editors;
};
