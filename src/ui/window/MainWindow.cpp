// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "AccessibleRole.h"
#include "AppRuntime.h"
#include "PasteEnabledTextField.h"
#include "PasteEnabledTextView.h"
#include "Sidebar.h"
#include "WindowPlacement.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QStackedLayout>

#include <algorithm>

namespace {

constexpr QSize initialSize(920, 680);
constexpr QSize smallestSize(860, 620);

bool performKeyEquivalent(QWidget &widget, const QKeyEvent &event)
{
    if (auto *field = dynamic_cast<PasteEnabledTextField *>(&widget))
        return field->performKeyEquivalent(event);
    if (auto *view = dynamic_cast<PasteEnabledTextView *>(&widget))
        return view->performKeyEquivalent(event);
    return false;
}

} // namespace

MainWindow::MainWindow(const QList<QWidget *> &pages,
                       std::function<void(MainWindowPage)> onPageClick)
    : QWidget(nullptr, WindowPlacement::regularWindow)
    , m_sidebar(new Sidebar)
    , m_pages(new QStackedLayout)
{
    setWindowTitle(AppRuntime::appName);
    setAccessibleRole(*this, QAccessible::Window, AppRuntime::appName);
    setMinimumSize(smallestSize);
    resize(initialSize);
    m_sidebar->onClick = std::move(onPageClick);
    for (auto *page : pages)
        m_pages->addWidget(page);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_sidebar);
    layout->addLayout(m_pages, 1);
}

void MainWindow::setCurrentPage(MainWindowPage page)
{
    m_currentPage = page;
    m_sidebar->setSelectedPage(page);
    m_pages->setCurrentIndex(int(page));
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    const auto widgets = m_pages->currentWidget()->findChildren<QWidget *>();
    const bool isTaken = std::any_of(widgets.begin(), widgets.end(), [event](QWidget *widget) {
        return performKeyEquivalent(*widget, *event);
    });
    if (!isTaken)
        QWidget::keyPressEvent(event);
}
