// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PageWindow.h"

#include "Clock.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QScrollBar>
#include <QWindow>

#include <stdexcept>

namespace {

constexpr QSize pageSize(712, 680);

} // namespace

void drawFrame(QWidget &window)
{
    QCoreApplication::sendPostedEvents(); // these tell what is due
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&window, &request);
}

void waitUntilExposed(const QWidget &window)
{
    // Nothing is drawn before.
    while (!window.windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

PageWindow::PageWindow(QWidget *page)
    : m_page(page)
{
    page->hide();
    page->setParent(this);
    page->resize(pageSize);
    resize(pageSize);
    show();
    waitUntilExposed(*this);
}

double PageWindow::open(const std::function<void()> &fill)
{
    return change([&] {
        fill();
        m_page->show();
    });
}

double PageWindow::change(const std::function<void()> &action)
{
    const auto start = Clock::now();
    action();
    drawFrame(*this);
    return milliseconds(start, Clock::now());
}

double PageWindow::scroll(const QAbstractScrollArea &view)
{
    constexpr int frames = 20;
    constexpr int step = 60;
    auto *bar = view.verticalScrollBar();
    if (bar->maximum() < frames * step)
        throw std::runtime_error("too little to scroll");
    QCoreApplication::processEvents();
    const auto start = Clock::now();
    for (int frame = 1; frame <= frames; ++frame) {
        bar->setValue(frame * step);
        drawFrame(*this);
    }
    return milliseconds(start, Clock::now()) / frames;
}
