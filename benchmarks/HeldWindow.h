// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QStringList>

class QWidget;

// Of the application's windows, the main one, which has been shown.
[[nodiscard]] QWidget &mainWindow();
// How many widgets each of its pages has.
[[nodiscard]] QList<qsizetype> widgetsOfPages(const QWidget &window);

// Shows a window until the process is ended, so that its memory can be measured from outside:
// "own", or "bare" with the number of widgets of each page, or "none". Prints the numbers, in one
// line, once it is on the screen.
[[noreturn]] void holdWindow(const QStringList &arguments);
