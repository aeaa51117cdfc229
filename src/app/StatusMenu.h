// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "TrayHostWatch.h"

#include <QImage>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QMenu;
class QSystemTrayIcon;

// What the status menu's entries and its icon do when chosen.
struct StatusMenuActions
{
    std::function<void()> openAPIConfiguration;
    std::function<void()> openLogFolder;
    std::function<void()> quit;
    std::function<void()> activate; // the icon itself was clicked
};

// The icon in the desktop's panel, its menu and its tool tip. Making it costs little: the icon and
// the menu come into being when a panel is there to show them.
class StatusMenu final
{
public:
    explicit StatusMenu(StatusMenuActions actions);
    ~StatusMenu();
    StatusMenu(const StatusMenu &) = delete;
    StatusMenu &operator=(const StatusMenu &) = delete;

    // Loads the icon's image, a template that is tinted or, as a last resort, the application's
    // icon, and logs whether there was one.
    void loadIcon();
    // Shows the icon as soon as one of the watches finds a panel.
    void showWhenHosted(std::vector<std::unique_ptr<TrayHostWatch>> watches);

    // Kept until there is an icon.
    void setToolTip(const QString &text);
    [[nodiscard]] bool hasIcon() const { return m_icon != nullptr; }

private:
    void showIcon();
    void buildMenu();

    StatusMenuActions m_actions;
    QString m_toolTip;
    QImage m_image;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    std::vector<std::unique_ptr<TrayHostWatch>> m_watches;
};
