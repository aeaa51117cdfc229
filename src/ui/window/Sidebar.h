// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MainWindowPage.h"

#include <QWidget>

#include <map>

class SidebarItemButton;

// The main window's left column: the application's name and one item a page.
class Sidebar final : public QWidget
{
public:
    // The items in their order from above; a click tells the page.
    Sidebar(const QList<MainWindowItem> &items, const std::function<void(MainWindowPage)> &onClick);

    // Marks the item of the page that is shown.
    void setSelectedPage(MainWindowPage page);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::map<MainWindowPage, SidebarItemButton *> m_items;
};
