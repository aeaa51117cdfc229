// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "RegularWindow.h"

#include "AccessibleRole.h"

#include <QScreen>
#include <QStyle>

RegularWindow::RegularWindow(const QString &title)
    : QWidget(nullptr,
              Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint
                  | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint)
{
    setWindowTitle(title);
    setAccessibleRole(*this, QAccessible::Window, title);
}

void RegularWindow::center()
{
    const auto available = screen()->availableGeometry();
    move(QStyle::alignedRect(
             Qt::LeftToRight, Qt::AlignCenter, frameGeometry().size(), available)
             .topLeft());
}

void RegularWindow::bringToFront()
{
    show();
    raise();
    activateWindow();
}
