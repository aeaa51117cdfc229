// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "AppRuntime.h"
#include "DeletionUndo.h"
#include "EditingInput.h"
#include "Sidebar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QStackedLayout>

#include <algorithm>

namespace {

constexpr QSize initialSize(920, 680);
constexpr QSize smallestSize(860, 620);

} // namespace

MainWindow::MainWindow(QList<MainWindowItem> items,
                       DeletionUndo &deletions,
                       std::function<void()> onClose)
    : RegularWindow(AppRuntime::appName)
    , m_items(std::move(items))
    , m_deletions(deletions)
    , m_onClose(std::move(onClose))
    , m_sidebar(new Sidebar(m_items, [this](MainWindowPage page) { switchTo(page); }))
    , m_pages(new QStackedLayout)
{
    setMinimumSize(smallestSize);
    resize(initialSize);
    for (const auto &item : std::as_const(m_items))
        m_pages->addWidget(item.view);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_sidebar);
    layout->addLayout(m_pages, 1);
}

void MainWindow::switchTo(MainWindowPage page)
{
    m_currentPage = page;
    m_sidebar->setSelectedPage(page);
    const auto item = std::ranges::find(std::as_const(m_items), page, &MainWindowItem::page);
    m_pages->setCurrentWidget(item->view);
    item->refresh();
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    if (!performShortcut(*event))
        RegularWindow::keyPressEvent(event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    RegularWindow::closeEvent(event);
    m_onClose();
}

bool MainWindow::performShortcut(const QKeyEvent &event)
{
    const auto key = editingShortcut(event);
    if (!key)
        return false;
    if (const int number = *key - Qt::Key_1; number >= 0 && number < m_items.size()) {
        switchTo(m_items[number].page);
        return true;
    }
    if (key == Qt::Key_Z) {
        m_deletions.undoLast();
        return true;
    }
    const auto widgets = m_pages->currentWidget()->findChildren<QWidget *>();
    return std::ranges::any_of(widgets, [&event](QWidget *widget) {
        auto *input = dynamic_cast<EditingInput *>(widget);
        return input && input->performKeyEquivalent(event);
    });
}
