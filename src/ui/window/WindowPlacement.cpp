// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WindowPlacement.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

void WindowPlacement::center(QWidget &window)
{
    const auto available = window.screen()->availableGeometry();
    window.move(QStyle::alignedRect(
                    Qt::LeftToRight, Qt::AlignCenter, window.frameGeometry().size(), available)
                    .topLeft());
}

void WindowPlacement::bringToFront(QWidget &window)
{
    window.show();
    window.raise();
    window.activateWindow();
}
