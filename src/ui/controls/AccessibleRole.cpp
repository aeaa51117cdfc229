// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace {

constexpr auto roleProperty = "accessibleRole";

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    const auto role = object ? object->property(roleProperty) : QVariant();
    if (!role.isValid())
        return nullptr;
    return new QAccessibleWidget(qobject_cast<QWidget *>(object), QAccessible::Role(role.toInt()));
}

} // namespace

void setAccessibleRole(QWidget &widget, QAccessible::Role role, const QString &name)
{
    QAccessible::installFactory(makeInterface); // the second time does nothing
    widget.setProperty(roleProperty, int(role));
    widget.setAccessibleName(name); // makes the interface, which asks for the role just once
}
