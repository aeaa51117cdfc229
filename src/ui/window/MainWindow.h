// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MainWindowPage.h"
#include "RegularWindow.h"

#include <optional>

class QStackedLayout;
class Sidebar;

// The main window's frame: the sidebar and the place where one page is shown.
class MainWindow final : public RegularWindow
{
public:
    // The pages in sidebar order; the window takes their views over.
    explicit MainWindow(QList<MainWindowItem> items);

    // Absent before the first page is shown.
    [[nodiscard]] std::optional<MainWindowPage> currentPage() const { return m_currentPage; }
    // Shows the page and refreshes it.
    void switchTo(MainWindowPage page);

protected:
    // Gets the keys that the focused control has left alone: an editing shortcut goes to the first
    // text field or view of the page that takes it.
    void keyPressEvent(QKeyEvent *event) override;

private:
    QList<MainWindowItem> m_items;
    Sidebar *m_sidebar;
    QStackedLayout *m_pages;
    std::optional<MainWindowPage> m_currentPage;
};
