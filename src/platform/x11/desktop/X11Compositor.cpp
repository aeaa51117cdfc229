// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11Compositor.h"

#include "X11Selections.h"

bool hasCompositor()
{
    auto *connection = X11Selections::applicationConnection();
    if (!connection)
        return true;
    const auto name = X11Selections::nameForScreen("_NET_WM_CM_S");
    return X11Selections::owner(connection, X11Selections::atom(connection, name)) != 0;
}
