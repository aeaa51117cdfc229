// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MainWindowPage.h"
#include "RegularWindow.h"

#include <optional>

class DeletionUndo;
class QStackedLayout;
class Sidebar;

// The main window's frame: the sidebar and the place where one page is shown.
class MainWindow final : public RegularWindow
{
public:
    // The pages in sidebar order; the window takes their views over.
    MainWindow(QList<MainWindowItem> items, DeletionUndo &deletions, std::function<void()> onClose);

    // Absent before the first page is shown.
    [[nodiscard]] std::optional<MainWindowPage> currentPage() const { return m_currentPage; }
    // Shows the page and refreshes it.
    void switchTo(MainWindowPage page);

protected:
    // Gets the keys that the focused control has left alone: an editing shortcut goes to the first
    // text field or view of the page that takes it, Control + 1 to 4 switch pages and Control + Z
    // undoes the last deletion.
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    [[nodiscard]] bool performShortcut(const QKeyEvent &event);

    QList<MainWindowItem> m_items;
    DeletionUndo &m_deletions;
    std::function<void()> m_onClose;
    Sidebar *m_sidebar;
    QStackedLayout *m_pages;
    std::optional<MainWindowPage> m_currentPage;
};
