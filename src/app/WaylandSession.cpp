// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandSession.h"

#include "AppLogger.h"
#include "PortalRemoteKeyboard.h"
#include "WaylandModule.h"

#include <QString>
#include <QtGlobal>

#include <cstdio>

using namespace Qt::StringLiterals;

bool WaylandSession::isCurrent()
{
    return qgetenv("XDG_SESSION_TYPE") == "wayland"
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

std::unique_ptr<WaylandDesktop> WaylandSession::connect()
{
    const auto chosen = qgetenv("QT_QPA_PLATFORM");
    if (!isCurrent() || !(chosen.isEmpty() || chosen.startsWith("wayland")))
        return {};
    auto compositor = WaylandModule::connect();
    // The portal is asked last: it may have to be started first.
    if (compositor && !compositor->canPaste(false)
        && !(compositor->canPaste(true) && PortalConnection::offers(PortalRemoteKeyboard::portal)))
        compositor.reset();
    if (chosen.isEmpty())
        qputenv("QT_QPA_PLATFORM", compositor ? "wayland;xcb" : "xcb;wayland");
    return compositor;
}

void WaylandSession::warnOfLimits()
{
    const auto message = u"Wayland session: the hotkey is heard only while an XWayland window has "
                         "the focus, and pasting reaches only XWayland windows."_s;
    AppLogger::warning(message);
    std::fprintf(stderr, "%s\n", qPrintable(message));
}
