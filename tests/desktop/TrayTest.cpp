// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Desktop.h"
#include "SelectionOwner.h"
#include "TrayPanel.h"
#include "WaitUntil.h"
#include "WrenfoldApplication.h"
#include "X11Connection.h"
#include "X11Selections.h"
#include "X11TrayWatch.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace {

// What a panel of the older kind does when it comes up.
void announceEmbeddingPanel(const X11Connection &connection)
{
    auto *server = connection.get();
    const auto root = connection.root();
    const auto selection =
        ownSelection(connection, X11Selections::nameForScreen("_NET_SYSTEM_TRAY_S"));
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = root;
    message.type = X11Selections::atom(server, "MANAGER");
    message.data.data32[1] = selection;
    const auto *bytes = reinterpret_cast<const char *>(&message);
    xcb_send_event(server, 0, root, XCB_EVENT_MASK_STRUCTURE_NOTIFY, bytes);
    xcb_flush(server);
}

} // namespace

// The private desktop may have its panel from the start, or none until it is made here.
TEST(Tray, TheIconItsToolTipAndEveryEntryOfItsMenuDoTheirPart)
{
    Desktop desktop;
    const auto application = WrenfoldApplication::launch();
    TrayPanel panel;
    ASSERT_TRUE(panel.hasIcon());
    const auto toolTip = u"Wrenfold：%1，按 ⌘⇧Space 开始或停止录音"_s;
    EXPECT_TRUE(panel.awaitToolTip(toolTip.arg(u"听"_s)));
    EXPECT_TRUE(panel.iconProperty(u"IconPixmap"_s).contains(u"(18, 18, "_s));
    const auto menu = panel.menu();
    const QRegularExpression order(
        u"'开始使用'.*'打开日志文件夹'.*'type': <'separator'>.*'退出'"_s);
    EXPECT_TRUE(menu.contains(order)) << menu.toStdString();
    EXPECT_TRUE(menu.contains(u"'shortcut': <[['Control', 'Q']]>"_s)) << menu.toStdString();
    if (!qEnvironmentVariableIsEmpty("WRENFOLD_DESKTOP_SOUND_PID")) {
        for (const auto &[keys, said, word] :
             {std::tuple(Key::hotKey, u"Recording started."_s, u"录"_s),
              std::tuple(std::vector{Key::escape}, u"Recording cancelled."_s, u"听"_s)}) {
            EXPECT_TRUE(WrenfoldApplication::tapUntilLogged(desktop, keys, said));
            EXPECT_TRUE(panel.awaitToolTip(toolTip.arg(word)));
        }
    }

    const auto terminal = desktop.start(u"xterm"_s, {}, u"xterm"_s);
    panel.choose(u"开始使用"_s);
    EXPECT_TRUE(waitUntil([&] { return desktop.focusedClass().contains(u"wrenfold"_s); }));
    EXPECT_FALSE(WrenfoldApplication::log().join(u'\n').contains(u"Open log folder"_s));
    panel.choose(u"打开日志文件夹"_s);
    EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Open log folder requested."_s));
    panel.click();
    const auto reopened = u"Application reopen requested. hasVisibleWindows=true"_s;
    EXPECT_TRUE(WrenfoldApplication::waitForLog(reopened));
    EXPECT_TRUE(application->isRunning());
    panel.choose(u"退出"_s);
    EXPECT_EQ(application->waitForExit(), 0);
}

TEST(EmbeddedTray, isFoundWheneverItComes)
{
    for (const bool isEarly : {false, true}) {
        const X11Connection panel([](const void *) {});
        bool isFound = false;
        if (isEarly)
            announceEmbeddingPanel(panel);
        X11TrayWatch watch;
        watch.start([&isFound] { isFound = true; });
        if (!isEarly) {
            EXPECT_FALSE(waitUntil([&isFound] { return isFound; }, std::chrono::milliseconds(50)));
            announceEmbeddingPanel(panel);
        }
        EXPECT_TRUE(waitUntil([&isFound] { return isFound; })) << isEarly;
    }
}
