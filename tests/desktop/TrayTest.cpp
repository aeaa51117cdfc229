// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DBusTrayHostWatch.h"
#include "Process.h"
#include "SelectionOwner.h"
#include "StatusMenu.h"
#include "TemporaryHome.h"
#include "WaitUntil.h"
#include "X11Connection.h"
#include "X11Selections.h"
#include "X11TrayWatch.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace {

// Calls a method of the session bus; `what` is its path, name and arguments.
QString call(const QString &service, const QString &what)
{
    const auto result = runCommand(u"gdbus call --session --dest %1 -o "_s.arg(service) + what);
    return QString::fromUtf8(result.output);
}

QString watcherProperty(const QString &name)
{
    return call(u"org.kde.StatusNotifierWatcher"_s,
                u"/StatusNotifierWatcher -m org.freedesktop.DBus.Properties.Get "
                "org.kde.StatusNotifierWatcher "_s
                    + name);
}

// The private desktop may have its panel from the start, or without WRENFOLD_DESKTOP_PARTS' "tray"
// none until the test starts it.
class TrayTest : public testing::Test
{
protected:
    void SetUp() override
    {
        std::vector<std::unique_ptr<TrayHostWatch>> watches;
        watches.push_back(std::make_unique<DBusTrayHostWatch>());
        watches.push_back(std::make_unique<X11TrayWatch>());
        m_menu.loadIcon();
        m_menu.setToolTip(u"Wrenfold：按 ⌘⇧Space 开始或停止录音"_s);
        m_menu.showWhenHosted(std::move(watches));
    }

    void awaitIcon()
    {
        if (!watcherProperty(u"IsStatusNotifierHostRegistered"_s).contains("true"_L1)) {
            EXPECT_FALSE(m_menu.hasIcon());
            m_panel.start(u"/usr/bin/python3"_s, {QStringLiteral(WRENFOLD_TEST_PANEL)});
        }
        ASSERT_TRUE(waitUntil([this] { return m_menu.hasIcon(); }));
        ASSERT_TRUE(waitUntil([this] {
            const auto items = watcherProperty(u"RegisteredStatusNotifierItems"_s);
            m_item = QRegularExpression(u".*'([^']+)'"_s).match(items).captured(1);
            return !m_item.isEmpty();
        }));
    }

    // Chooses a menu entry as a panel does.
    void choose(const QString &label)
    {
        const QRegularExpression entry(u"\\((\\d+), \\{[^}]*'label': <'%1'>"_s.arg(label));
        call(m_item,
             u"/MenuBar -m com.canonical.dbusmenu.Event %1 clicked \"<''>\" 0"_s.arg(
                 entry.match(layout()).captured(1)));
    }

    QString layout()
    {
        return call(m_item, u"/MenuBar -m com.canonical.dbusmenu.GetLayout -- 0 -1 []"_s);
    }

    QString itemProperty(const QString &name)
    {
        return call(m_item,
                    u"/StatusNotifierItem -m org.freedesktop.DBus.Properties.Get "
                    "org.kde.StatusNotifierItem "_s
                        + name);
    }

    TemporaryHome m_home;
    QStringList m_calls;
    StatusMenu m_menu{{[this] { m_calls << u"configure"_s; },
                       [this] { m_calls << u"logs"_s; },
                       [this] { m_calls << u"quit"_s; },
                       [this] { m_calls << u"activate"_s; }}};
    QString m_item; // the bus name that owns the icon
    BackgroundProcess m_panel;
};

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

TEST_F(TrayTest, showsIconToolTipAndMenuOncePanelsAreThereAndCallsWhatIsChosen)
{
    awaitIcon();
    EXPECT_TRUE(itemProperty(u"ToolTip"_s).contains(u"Wrenfold：按 ⌘⇧Space 开始或停止录音"_s));
    EXPECT_TRUE(itemProperty(u"IconPixmap"_s).contains(u"(18, 18, "_s));
    m_menu.setToolTip(u"Wrenfold：录"_s);
    EXPECT_TRUE(itemProperty(u"ToolTip"_s).contains(u"Wrenfold：录"_s));
    const QRegularExpression order(
        u"'开始使用'.*'打开日志文件夹'.*'type': <'separator'>.*'退出'"_s);
    EXPECT_TRUE(layout().contains(order)) << layout().toStdString();
    EXPECT_TRUE(layout().contains(u"'shortcut': <[['Control', 'Q']]>"_s)) << layout().toStdString();
    for (const auto &label : {u"打开日志文件夹"_s, u"开始使用"_s, u"退出"_s})
        choose(label);
    call(m_item, u"/StatusNotifierItem -m org.kde.StatusNotifierItem.Activate 0 0"_s);
    EXPECT_TRUE(waitUntil([this] { return m_calls.size() == 4; }));
    EXPECT_EQ(m_calls, QStringList({u"logs"_s, u"configure"_s, u"quit"_s, u"activate"_s}));
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
