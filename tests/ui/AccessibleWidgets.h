// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QWidget>

// What a screen reader calls the widget.
inline QString accessibleName(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

// The widget that a screen reader calls so; null when there is none.
template<typename Widget>
Widget *named(const QWidget &root, const QString &name)
{
    for (auto *widget : root.findChildren<Widget *>())
        if (accessibleName(widget) == name)
            return widget;
    return nullptr;
}
