// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MainWindowPage.h"

#include <QWidget>

#include <functional>
#include <map>

class SidebarItemButton;

// The main window's left column: the application's name and one item a page.
class Sidebar final : public QWidget
{
public:
    Sidebar();

    // Marks the item of the page that is shown.
    void setSelectedPage(MainWindowPage page);

    std::function<void(MainWindowPage)> onClick;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::map<MainWindowPage, SidebarItemButton *> m_items;
};
