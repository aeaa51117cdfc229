// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Process.h"
#include "StatusMenu.h"
#include "TemporaryHome.h"
#include "TrayHostMonitor.h"
#include "WaitUntil.h"
#include "X11Selections.h"
#include "X11TrayWatch.h"
#include "XcbConnection.h"

#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace {

const auto watcher = u"org.kde.StatusNotifierWatcher"_s;

QString call(const QString &service,
             const QString &path,
             const QString &method,
             const QStringList &arguments)
{
    const auto address = u"call --session --dest %1 --object-path %2 --method %3 --"_s;
    const auto result =
        runProcess(u"gdbus"_s, address.arg(service, path, method).split(u' ') + arguments);
    return QString::fromUtf8(result.output);
}

QString
property(const QString &service, const QString &path, const QString &interface, const QString &name)
{
    return call(service, path, u"org.freedesktop.DBus.Properties.Get"_s, {interface, name});
}

// The private desktop may have its panel from the start, or without WRENFOLD_DESKTOP_PARTS' "tray"
// none until the test starts it.
class TrayTest : public testing::Test
{
protected:
    void SetUp() override
    {
        std::vector<std::unique_ptr<TrayHostWatch>> watches;
        watches.push_back(std::make_unique<TrayHostMonitor>());
        watches.push_back(std::make_unique<X11TrayWatch>());
        m_menu.loadIcon();
        m_menu.setToolTip(u"Wrenfold：按 ⌘⇧Space 开始或停止录音"_s);
        m_menu.showWhenHosted(std::move(watches));
    }

    void TearDown() override
    {
        m_panel.kill();
        m_panel.waitForFinished();
    }

    void awaitIcon()
    {
        const auto path = u"/StatusNotifierWatcher"_s;
        if (!property(watcher, path, watcher, u"IsStatusNotifierHostRegistered"_s)
                 .contains("true"_L1)) {
            EXPECT_FALSE(m_menu.hasIcon());
            m_panel.start(u"/usr/bin/python3"_s, {QStringLiteral(WRENFOLD_TEST_PANEL)});
        }
        ASSERT_TRUE(waitUntil([this] { return m_menu.hasIcon(); }));
        ASSERT_TRUE(waitUntil([this, path] {
            const auto items = property(watcher, path, watcher, u"RegisteredStatusNotifierItems"_s);
            m_item = QRegularExpression(u".*'([^']+)'"_s).match(items).captured(1);
            return !m_item.isEmpty();
        }));
    }

    // Chooses a menu entry as a panel does.
    void choose(const QString &label)
    {
        const auto entry = QRegularExpression(u"\\((\\d+), \\{[^}]*'label': <'%1'>"_s.arg(label));
        const auto id = entry.match(layout()).captured(1);
        call(m_item,
             u"/MenuBar"_s,
             u"com.canonical.dbusmenu.Event"_s,
             {id, u"clicked"_s, u"<''>"_s, u"0"_s});
    }

    QString layout()
    {
        return call(m_item,
                    u"/MenuBar"_s,
                    u"com.canonical.dbusmenu.GetLayout"_s,
                    {u"0"_s, u"-1"_s, u"[]"_s});
    }

    QString itemProperty(const QString &name)
    {
        return property(m_item, u"/StatusNotifierItem"_s, u"org.kde.StatusNotifierItem"_s, name);
    }

    TemporaryHome m_home;
    QStringList m_calls;
    StatusMenu m_menu{{[this] { m_calls << u"configure"_s; },
                       [this] { m_calls << u"logs"_s; },
                       [this] { m_calls << u"quit"_s; },
                       [this] { m_calls << u"activate"_s; }}};
    QString m_item; // the bus name that owns the icon
    QProcess m_panel;
};

// What a panel of the older kind does when it comes up.
void announceEmbeddingPanel(const XcbConnection &connection)
{
    auto *server = connection.get();
    const auto root = connection.root();
    const auto selection =
        X11Selections::atom(server, X11Selections::nameForScreen("_NET_SYSTEM_TRAY_S"));
    const auto window = xcb_generate_id(server);
    xcb_create_window(server, 0, window, root, 0, 0, 9, 9, 0, 0, 0, 0, nullptr);
    xcb_set_selection_owner(server, window, selection, XCB_CURRENT_TIME);
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

TEST_F(TrayTest, showsIconToolTipAndMenuOncePanelsAreThere)
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
}

TEST_F(TrayTest, callsWhatIsChosen)
{
    awaitIcon();
    for (const auto &label : {u"打开日志文件夹"_s, u"开始使用"_s, u"退出"_s})
        choose(label);
    const auto activate = u"org.kde.StatusNotifierItem.Activate"_s;
    call(m_item, u"/StatusNotifierItem"_s, activate, {u"0"_s, u"0"_s});
    EXPECT_TRUE(waitUntil([this] { return m_calls.size() == 4; }));
    EXPECT_EQ(m_calls, QStringList({u"logs"_s, u"configure"_s, u"quit"_s, u"activate"_s}));
}

TEST(EmbeddedTray, isFoundWheneverItComes)
{
    for (const bool isEarly : {false, true}) {
        const XcbConnection panel([](const void *) {});
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
