// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

// Makes a plain widget known to screen readers in a role ("list item", "heading" …) and under a
// name. Not for controls: of those Qt knows the role, the states and the actions.
void setAccessibleRole(QWidget &widget, QAccessible::Role role, const QString &name);
