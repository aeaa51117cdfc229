// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Process.h"

// The panel of the private desktop as a user sees and clicks it. When the desktop has none yet
// (WRENFOLD_DESKTOP_PARTS without "tray") it comes up with this object.
class TrayPanel final
{
public:
    TrayPanel();

    // Whether an icon comes to stand in the panel.
    [[nodiscard]] bool hasIcon();
    // A property of the icon, as text: "ToolTip", "IconPixmap".
    [[nodiscard]] QString iconProperty(const QString &name) const;
    // Waits until the tool tip has this text.
    [[nodiscard]] bool awaitToolTip(const QString &text) const;
    // The whole menu, as text.
    [[nodiscard]] QString menu() const;
    // Chooses a menu entry by its label, and clicks the icon itself.
    void choose(const QString &label) const;
    void click() const;
    // How many milliseconds the application takes to answer a question about its icon.
    [[nodiscard]] qint64 millisecondsToAnswer() const;

private:
    BackgroundProcess m_panel;
    QString m_icon; // the bus name that owns the icon
};
