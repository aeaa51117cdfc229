// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AccessibleFocus.h"
#include "Process.h"
#include "WaitUntil.h"
#include "X11FocusReturn.h"

#include <QWidget>

#include <future>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// As the application runs on GNOME.
const bool isOnX = qEnvironmentVariableIsSet("DISPLAY") && qputenv("QT_QPA_PLATFORM", "xcb");

bool awaitFocusOf(const QByteArray &name)
{
    return waitUntil([&] { return focusedApplicationByAccessibility().names.contains(name); }, 20s);
}

} // namespace

TEST(GnomeFocus, GoesBackToAWindowThatXDoesNotKnow)
{
    ASSERT_TRUE(isOnX);
    X11FocusReturn focusReturn(X11Reach::XWayland);
    BackgroundProcess editor;
    editor.start(u"mousepad"_s, {u"--disable-server"_s});
    ASSERT_TRUE(awaitFocusOf("mousepad"));
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(waitUntil([&] { return window.isActiveWindow(); }));
    auto back = std::async(std::launch::async, [&] { return focusReturn.returnFocus(); });
    ASSERT_TRUE(waitUntil([&] { return back.wait_for(0s) == std::future_status::ready; }));
    EXPECT_TRUE(back.get());
    EXPECT_TRUE(awaitFocusOf("mousepad"));
}
