// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QWidget;

// A window in words: for each widget that can be seen or is known to screen readers its role, name,
// state, place and size, and what it paints: texts with their fonts, shapes and symbols, each with
// its place and colour. Places are counted from the window's corner. Parts that are scrolled out of
// sight are told too. Last comes what Tab goes through.
[[nodiscard]] QString describe(QWidget &window);

// The window in the light and in the dark scheme, the latter put on while it is shown. Where they
// differ, both are told: "light|dark".
[[nodiscard]] QString describeInBothSchemes(QWidget &window);

// What a user does with a window, told by what comes (+) and goes (-) of its description.
class Story final
{
public:
    explicit Story(QWidget &window);

    // Goes on from what the window shows now.
    void begin();
    // Tells what has changed since.
    void tell(const QString &step);
    [[nodiscard]] const QString &text() const { return m_text; }

private:
    QWidget &m_window;
    QStringList m_lines;
    QString m_text;
};
