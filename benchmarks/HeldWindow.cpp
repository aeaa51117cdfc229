// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HeldWindow.h"

#include "BareWindow.h"
#include "EventLoopMainQueue.h"
#include "HistoryStore.h"
#include "MainWindowController.h"
#include "PageWindow.h"

#include <QApplication>
#include <QStackedLayout>

#include <cstdio>
#include <stdexcept>

QWidget &mainWindow()
{
    for (auto *window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->findChild<QStackedLayout *>())
            return *window;
    throw std::runtime_error("the window is not shown");
}

QList<qsizetype> widgetsOfPages(const QWidget &window)
{
    QList<qsizetype> counts;
    const auto *pages = window.findChild<QStackedLayout *>();
    for (int page = 0; page < pages->count(); ++page)
        counts << pages->widget(page)->findChildren<QWidget *>().size();
    return counts;
}

void holdWindow(const QStringList &arguments)
{
    EventLoopMainQueue queue;
    HistoryStore store;
    MainWindowController controller(queue, store, {}, {});
    std::unique_ptr<BareWindow> bare;
    QList<qsizetype> counts;
    for (const auto &count : arguments.mid(1))
        counts << count.toLongLong();
    if (arguments.constFirst() == QLatin1StringView("own")) {
        controller.show({}, MainWindowPage::GettingStarted);
        counts = widgetsOfPages(mainWindow());
    } else if (arguments.constFirst() == QLatin1StringView("bare")) {
        bare = std::make_unique<BareWindow>(counts);
        bare->show();
    }
    for (auto *window : QApplication::topLevelWidgets())
        if (window->isVisible())
            waitUntilExposed(*window);
    for (const auto count : counts)
        std::printf("%lld ", static_cast<long long>(count));
    std::printf("\n");
    std::fflush(stdout);
    std::exit(QApplication::exec());
}
