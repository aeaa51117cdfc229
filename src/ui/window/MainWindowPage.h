// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// The main window's pages, in sidebar order.
enum class MainWindowPage {
    GettingStarted,
    Clipboard,
    Dictionary,
    Contact,
};
