// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "EventLoopMainQueue.h"
#include "Process.h"
#include "SessionKeyboard.h"
#include "WaitUntil.h"
#include "WaylandModule.h"
#include "WrenfoldApplication.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class WaylandBackends : public testing::Test
{
protected:
    void SetUp() override
    {
        desktop = WaylandModule::connect();
        ASSERT_TRUE(desktop);
        desktop->start(queue, [] {});
    }

    SessionKeyboard keyboard; // the seat has none without
    EventLoopMainQueue queue;
    std::unique_ptr<WaylandDesktop> desktop;
};

TEST_F(WaylandBackends, OffersWholeTextsOnTheSelectionsThatAreWantedAndKnowsOfEachFetch)
{
    const auto clipboard = desktop->makeClipboard();
    const auto paste = [](const char *options) {
        return runCommand(u"timeout 10 wl-paste --no-newline %1"_s.arg(QLatin1String(options)))
            .output;
    };
    const auto large = u"第一行 🚀\r\n\tzweite Zeile\n"_s.repeated(3000); // 120 KB
    int fetches = 0;
    ASSERT_TRUE(clipboard->offer(
        large, ClipboardSelections::ClipboardAndPrimary, [&fetches] { ++fetches; }));
    EXPECT_EQ(paste(""), large.toUtf8());
    EXPECT_EQ(paste("--primary"), large.toUtf8());
    EXPECT_TRUE(waitUntil([&] { return fetches == 2; }));
    ASSERT_TRUE(clipboard->offer(u""_s, ClipboardSelections::Clipboard));
    EXPECT_EQ(paste("--type text/plain"), "");
    EXPECT_EQ(paste("--primary"), large.toUtf8());
    EXPECT_EQ(fetches, 2);
}

TEST_F(WaylandBackends, GivesTheFocusBackAndASecondLaunchTakesItAgain)
{
    const auto terminal = qEnvironmentVariableIsSet("SWAYSOCK") ? u"foot"_s : u"konsole"_s;
    const auto pasteKeys = desktop->makeKeyboard({});
    const auto comesToFront = [&](PasteChord chord) {
        return waitUntil([&] { return pasteKeys->pasteChordOfFocusedWindow() == chord; });
    };
    const auto focusReturn = desktop->makeFocusReturn();
    EXPECT_FALSE(focusReturn->returnFocus());
    BackgroundProcess other;
    other.start(terminal, QStringList());
    EXPECT_TRUE(waitUntil([&] { return focusReturn->returnFocus(); }));
    const auto application = WrenfoldApplication::launch();
    EXPECT_TRUE(comesToFront(PasteChord::ControlV));
    EXPECT_TRUE(focusReturn->returnFocus());
    EXPECT_EQ(pasteKeys->pasteChordOfFocusedWindow(), PasteChord::ShiftInsert);
    WrenfoldApplication secondLaunch({u"XDG_ACTIVATION_TOKEN=stale"_s});
    EXPECT_EQ(secondLaunch.waitForExit(), 0);
    EXPECT_TRUE(comesToFront(PasteChord::ControlV));
}
