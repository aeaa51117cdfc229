// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MainWindowController.h"

void MainWindowController::show(const AppConfig &, MainWindowPage) {}

void MainWindowController::refreshIfVisible(const AppConfig &) {}

bool MainWindowController::isVisible() const
{
    return false;
}
