// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

class QAbstractScrollArea;

// Draws what is due in a window, as when the window system asks for it.
void drawFrame(QWidget &window);

// Returns when a window that is shown is on the screen.
void waitUntilExposed(const QWidget &window);

// A window on the screen, for one page.
class PageWindow final : public QWidget
{
public:
    // Takes the page over; it is not shown yet.
    explicit PageWindow(QWidget *page);

    // Milliseconds to fill the page and to have it on the screen.
    double open(const std::function<void()> &fill);
    // Milliseconds to change something on the page and to have it on the screen.
    double change(const std::function<void()> &action);
    // Milliseconds a frame, scrolled from the top in the steps of a mouse wheel.
    double scroll(const QAbstractScrollArea &view);

private:
    QWidget *m_page;
};
