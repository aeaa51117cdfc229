// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfig.h"
#include "Desktop.h"
#include "HistoryStore.h"
#include "ScreenReader.h"
#include "ScriptedServices.h"
#include "WaitUntil.h"
#include "WrenfoldApplication.h"
#include "X11HotKeyRegistrar.h"
#include "X11InputConnection.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void run(const QString &command)
{
    const auto result = runCommand(command);
    ASSERT_EQ(result.exitCode, 0) << result.errors.toStdString();
}

// Types into whatever has the focus.
void type(const QString &text)
{
    run(u"xdotool type --delay 4 '%1'"_s.arg(text));
}

void copy(const QString &text)
{
    run(u"printf %s '%1' | xclip -selection clipboard"_s.arg(text));
}

QString pasteboard()
{
    return QString::fromUtf8(runCommand(u"xclip -o -selection clipboard"_s).output);
}

} // namespace

// The running application with its window, as a user sits at it.
class Window : public testing::Test
{
protected:
    void launch()
    {
        application.reset();
        application = WrenfoldApplication::launch({u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"_s});
        // Before that the window manager may still move it.
        ASSERT_TRUE(waitUntil([this] { return !focused().isEmpty(); }));
        window = reader.await(u"frame: Wrenfold"_s).geometry;
    }

    // Clicks on the middle of an element once it is there; the wheel brings it into view.
    void click(const QString &spoken)
    {
        const auto pointAt = [](const QPoint &place, int button) {
            run(u"xdotool mousemove %1 %2 click %3"_s.arg(place.x()).arg(place.y()).arg(button));
        };
        QRect element;
        ASSERT_TRUE(waitUntil([&] {
            element = reader.await(spoken).geometry;
            if (!window.contains(element))
                pointAt({window.right() - 24, window.center().y()}, 5);
            return window.contains(element);
        }));
        pointAt(element.center(), 1);
    }

    QString focused()
    {
        QString spoken;
        for (const auto &element : reader.elements())
            if (element.isFocused && !element.spoken.startsWith("filler"_L1))
                spoken = element.spoken;
        return spoken;
    }

    const QString polished = u"我们今天 ship。"_s;
    Desktop desktop;
    ScreenReader reader;
    ScriptedServices services{{u"--transcript"_s, u"嗯 我们今天"_s, u"--polished"_s, polished}};
    std::unique_ptr<WrenfoldApplication> application;
    QRect window;
};

TEST_F(Window, LeadsFromAnEmptyHomeToTheFirstPastedDictation)
{
    const auto emptyHistory = u"label: 还没有转录。录音完成后，结果会自动出现在这里。"_s;
    launch();
    reader.await(u"label: API Key 只保存在本机，不会被打进分享版 App。"_s);
    services.configure(false); // where the services are is all that a hand has to change
    launch();
    click(u"password text: 豆包语音 API Key"_s);
    type(u"first-voice-key"_s);
    click(u"password text: DeepSeek API Key"_s);
    type(u"first-polish-key"_s);
    click(u"push button: 保存 API"_s);
    reader.await(u"label: 已保存，可以开始使用。"_s);
    EXPECT_TRUE(waitUntil([&] { return reader.newNames.contains(u"已保存，可以开始使用。"_s); }));
    EXPECT_EQ(AppConfig::loadOrCreateTemplate().config.deepSeek.apiKey, u"first-polish-key"_s);
    click(u"radio button: 剪贴板"_s);
    reader.await(emptyHistory);

    const auto file = QDir::home().filePath(u"text.txt"_s);
    auto editor = desktop.start(u"mousepad"_s, {u"--disable-server"_s, file}, u"mousepad"_s);
    for (const auto &step : {u"Recording started."_s, u"Recording stopped."_s})
        ASSERT_TRUE(WrenfoldApplication::tapUntilLogged(desktop, Key::hotKey, step));
    EXPECT_TRUE(WrenfoldApplication::waitForLog(u"Auto paste succeeded."_s));
    EXPECT_TRUE(desktop.isSaved(polished, file));
    reader.await(polished);
    editor.reset();

    for (const auto &action : {u"复制转录"_s, u"再次粘贴"_s}) {
        copy(u"something else"_s);
        click(u"push button: "_s + action);
        EXPECT_TRUE(waitUntil([&] { return pasteboard() == polished; })) << qPrintable(action);
    }
    EXPECT_TRUE(WrenfoldApplication::waitForLog(u"No window to paste into."_s));
    click(u"push button: 删除转录"_s);
    reader.await(emptyHistory);
    EXPECT_TRUE(HistoryStore().items().isEmpty());

    launch();
    reader.await(u"label: 当前已配置 API Key。"_s);
    for (const auto &element : reader.elements())
        EXPECT_FALSE((element.spoken + element.text).contains("first-"_L1));
    EXPECT_TRUE(reader.edits.contains(u"•••"_s));
    EXPECT_FALSE(reader.edits.contains("first-"_L1)) << qPrintable(reader.edits);
}

TEST_F(Window, GivesTheHotkeyThatIsPressedInIt)
{
    const std::vector<quint8> chord{Key::leftControl, Key::f9};
    services.configure();
    launch();
    qsizetype times = 0;
    for (const auto &current : {u"⌘⇧Space"_s, u"⌃F9"_s}) {
        click(u"push button: "_s + current);
        reader.await(u"push button: 按下新的快捷键"_s);
        desktop.tap(chord);
        const auto registered = u"Hotkey registered. displayName=⌃F9"_s;
        ASSERT_TRUE(WrenfoldApplication::waitForLog(registered, ++times));
        reader.await(u"label: 当前快捷键：⌃F9"_s);
    }
    EXPECT_TRUE(WrenfoldApplication::log().filter(u"Recording"_s).isEmpty());
    X11InputConnection input;
    EXPECT_EQ(X11HotKeyRegistrar(input).registerHotKey(HotKeyId::Main, 49, 0x300), 0);

    const auto terminal = desktop.start(u"xterm"_s, {}, u"xterm"_s);
    EXPECT_TRUE(WrenfoldApplication::tapUntilLogged(desktop, chord, u"Recording started."_s));
}

TEST_F(Window, TellsAScreenReaderEverythingAndTabReachesIt)
{
    services.configure();
    HistoryStore().add(u"嗯"_s, polished);
    const auto time = HistoryStore().items()[0].createdAt.toLocalTime().toString(u"HH:mm "_s);
    launch();
    // The rest of the row is reached by the arrow keys.
    click(u"radio button: 剪贴板"_s);
    reader.await(u"radio button: 剪贴板 ✓"_s);
    const auto row = u"list item: "_s + time + polished;
    const QStringList stops{u"radio button: 开始使用"_s,
                            u"radio button: 剪贴板 ✓"_s,
                            u"radio button: 词库"_s,
                            u"radio button: 联系作者"_s,
                            row};
    QStringList reached;
    for (qsizetype i = 0; i < stops.size(); ++i) {
        const auto before = focused();
        reached << before;
        desktop.tap({Key::tab});
        EXPECT_TRUE(waitUntil([&] { return focused() != before; })) << qPrintable(before);
    }
    reached.sort();
    auto expected = stops;
    expected.sort();
    EXPECT_EQ(reached.join(u'|').toStdString(), expected.join(u'|').toStdString());
    click(u"radio button: 开始使用"_s);
    click(u"push button: 获取豆包 API 的 Wrenfold 教程"_s);
    reader.await(u"frame: Wrenfold API 教程"_s);
    EXPECT_TRUE(waitUntil([this] { return focused() == u"label: 获取豆包语音 API Key"_s; }));
}

TEST_F(Window, FollowsTheDesktopsColourScheme)
{
    BackgroundProcess portal;
    portal.start(u"/usr/bin/python3"_s, {QStringLiteral(WRENFOLD_TEST_PORTAL), u"dark"_s});
    ASSERT_TRUE(waitUntil([&portal] { return portal.readAll().contains("up"); }));
    launch();
    const auto isBetween = [this](int least, int most) {
        const auto shot = u"import -silent -window root -crop 1x1+%1+%2 -depth 8 gray:-"_s;
        const auto pixel = runCommand(shot.arg(window.right() - 24).arg(window.top() + 12)).output;
        return pixel.size() == 1 && uchar(pixel[0]) >= least && uchar(pixel[0]) <= most;
    };
    EXPECT_TRUE(waitUntil([&] { return isBetween(20, 63); }));
    portal.write("light\n");
    EXPECT_TRUE(waitUntil([&] { return isBetween(192, 255); }));
}

TEST_F(Window, KeepsWhatWasTypedWhenItCannotBeSaved)
{
    launch();
    const auto file = AppConfig::configURL().toLocalFile();
    ASSERT_TRUE(QFile::remove(file) && QDir().mkdir(file));
    for (const auto &key : {u"豆包语音 API Key"_s, u"DeepSeek API Key"_s}) {
        click(u"password text: "_s + key);
        type(u"a-key"_s);
    }
    click(u"push button: 保存 API"_s);
    click(u"push button: 确定"_s);
    ASSERT_TRUE(QDir().rmdir(file));
    EXPECT_TRUE(waitUntil([this] {
        click(u"push button: 保存 API"_s);
        return WrenfoldApplication::waitForLog(u"API keys saved."_s, 1, std::chrono::seconds(1));
    }));
    EXPECT_EQ(AppConfig::loadOrCreateTemplate().config.volcengine.apiKey, u"a-key"_s);
}

TEST_F(Window, PastesIntoThePagesFirstFieldFromAnywhereButNotWithCapsLock)
{
    launch();
    copy(u"Cursor"_s);
    click(u"radio button: 词库"_s);
    reader.await(u"text: 添加新词"_s);
    const std::vector<quint8> paste{Key::leftControl, Key::v};
    for (const auto &keys : {{Key::capsLock}, paste, {Key::capsLock}, paste})
        desktop.tap(keys);
    type(u"s"_s);
    click(u"push button: 添加"_s);
    reader.await(u"push button: 词条 Cursors"_s);
}
