// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <vector>

class QPoint;
class QWidget;

// One line of a context menu; a separator when it has no title.
struct ContextMenuItem
{
    QString title;
    std::function<void()> action;
};

// Opens a menu for the widget at a position on the screen and returns at once.
void popUpContextMenu(QWidget &widget, const QPoint &position, std::vector<ContextMenuItem> items);
