// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

class QWidget;

// The main window's pages. Their order is that of the list the window is built from.
enum class MainWindowPage {
    GettingStarted,
    Clipboard,
    Dictionary,
    Contact,
};

// One page and its item in the sidebar.
struct MainWindowItem
{
    MainWindowPage page;
    QString title;
    QString symbolName;
    QWidget *view;
    // Called each time the page is chosen, also when it is shown already.
    std::function<void()> refresh;
};
