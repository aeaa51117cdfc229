// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "LoggedLines.h"
#include "WaylandSession.h"

#include <QScopeGuard>

#include <gtest/gtest.h>

TEST(WaylandSession, runsThroughXWaylandWithAWarningUnlessTheUserChose)
{
    const TemporaryHome home;
    const auto restore = qScopeGuard([platform = qgetenv("QT_QPA_PLATFORM")] {
        qputenv("QT_QPA_PLATFORM", platform);
        qunsetenv("XDG_SESSION_TYPE");
        qunsetenv("WAYLAND_DISPLAY");
    });
    // Session type, Wayland's socket, the user's choice, what it becomes and the warnings so far.
    const std::tuple<const char *, const char *, const char *, const char *, int> rows[] = {
        {"x11", "", "", "", 0},
        {"wayland", "", "", "xcb;wayland", 1},
        {"", "wayland-0", "", "xcb;wayland", 2},
        {"wayland", "wayland-0", "wayland", "wayland", 3},
    };
    for (const auto &[type, socket, chosen, expected, warnings] : rows) {
        qputenv("XDG_SESSION_TYPE", type);
        qputenv("WAYLAND_DISPLAY", socket);
        qputenv("QT_QPA_PLATFORM", chosen);
        EXPECT_EQ(WaylandSession::connect(), nullptr);
        EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), expected);
        if (WaylandSession::isCurrent())
            WaylandSession::warnOfLimits();
        EXPECT_EQ(loggedLines(home).filter(QStringLiteral("WARN Wayland")).size(), warnings);
    }
}
