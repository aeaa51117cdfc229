// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandSession.h"

#include "AppLogger.h"

#include <QString>
#include <QtGlobal>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

bool isCurrent()
{
    return qgetenv("XDG_SESSION_TYPE") == "wayland"
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

} // namespace

void WaylandSession::useXWayland()
{
    if (isCurrent() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}

void WaylandSession::warnOfLimits()
{
    if (!isCurrent())
        return;
    const auto message = u"Wayland session: the hotkey is heard only while an XWayland window has "
                         "the focus, and pasting reaches only XWayland windows."_s;
    AppLogger::warning(message);
    std::fprintf(stderr, "%s\n", qPrintable(message));
}
