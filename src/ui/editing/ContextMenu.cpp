// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ContextMenu.h"

#include <QMenu>

void popUpContextMenu(QWidget &widget, const QPoint &position, std::vector<ContextMenuItem> items)
{
    auto *menu = new QMenu(&widget);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (auto &item : items) {
        if (item.title.isEmpty())
            menu->addSeparator();
        else
            QObject::connect(
                menu->addAction(item.title), &QAction::triggered, &widget, std::move(item.action));
    }
    menu->popup(position);
}
