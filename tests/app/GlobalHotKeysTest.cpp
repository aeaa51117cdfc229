// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "FakeHotKeyRegistrar.h"
#include "FakeModifierMonitor.h"
#include "GlobalHotKeys.h"
#include "LoggedLines.h"
#include "VirtualMainQueue.h"

#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::Pair;

namespace {

const HotKeyConfig rightOption{61, 0x800, u"右⌥"_s};

class GlobalHotKeysTest : public testing::Test
{
protected:
    GlobalHotKeysTest() { m_hotKeys->installHotKeyHandler(); }

    TemporaryHome m_home;
    HotKeyConfig m_hotKey;
    std::vector<std::string> m_actions;
    QString m_toolTip;
    bool m_isKeyboardHeld = false;
    FakeHotKeyRegistrar m_registrar;
    FakeModifierMonitor m_monitor;
    VirtualMainQueue m_queue;
    std::unique_ptr<GlobalHotKeys> m_hotKeys = std::make_unique<GlobalHotKeys>(
        m_registrar,
        &m_monitor,
        m_queue,
        GlobalHotKeys::Callbacks{[this]() -> const HotKeyConfig & { return m_hotKey; },
                                 [this] { m_actions.emplace_back("toggle"); },
                                 [this] { m_actions.emplace_back("cancel"); },
                                 [this](const QString &text) { m_toolTip = text; },
                                 [this] { return m_isKeyboardHeld; },
                                 {}});
};

TEST_F(GlobalHotKeysTest, pressesRunAsWorkOfTheMainQueueInTheirOrder)
{
    m_hotKeys->installHotKeyHandler();
    EXPECT_EQ(m_registrar.handlersSet, 1);
    m_hotKeys->registerHotKey();
    m_hotKeys->registerEscapeCancelHotKey();
    EXPECT_THAT(m_registrar.registered,
                ElementsAre(Pair(HotKeyId::Main, Pair(49U, 0x300U)),
                            Pair(HotKeyId::Escape, Pair(53U, 0U))));
    for (const auto id : {HotKeyId::Main, HotKeyId::Escape, HotKeyId::Main})
        m_registrar.press(id);
    EXPECT_THAT(m_actions, testing::IsEmpty());
    m_queue.runReady();
    EXPECT_THAT(m_actions, ElementsAre("toggle", "cancel", "toggle"));
    m_hotKeys->unregisterEscapeCancelHotKey();
    EXPECT_FALSE(m_registrar.registered.contains(HotKeyId::Escape));
    // What is still queued when the object goes never runs.
    m_registrar.press(HotKeyId::Main);
    m_hotKeys.reset();
    m_queue.runReady();
    EXPECT_EQ(m_actions.size(), 3U);
    EXPECT_THAT(m_registrar.registered, testing::IsEmpty());
}

TEST_F(GlobalHotKeysTest, oneMechanismIsActiveLoggedAndShown)
{
    m_hotKeys->registerHotKey();
    EXPECT_EQ(m_toolTip, u"Wrenfold：按 ⌘⇧Space 开始或停止录音"_s);
    EXPECT_FALSE(m_monitor.isRunning());
    m_registrar.status = 10;
    m_hotKey = {0, 0x900, u"⌥⌘A"_s};
    m_hotKeys->registerHotKey();
    EXPECT_EQ(m_toolTip, u"Wrenfold：按 ⌘⇧Space 开始或停止录音"_s);
    EXPECT_THAT(m_registrar.registered, testing::IsEmpty());
    m_registrar.status = 0;
    m_hotKey = rightOption;
    m_hotKeys->registerHotKey();
    EXPECT_EQ(m_toolTip, u"Wrenfold：按 右⌥ 开始或停止录音"_s);
    EXPECT_TRUE(m_monitor.isRunning());
    EXPECT_THAT(m_registrar.registered, testing::IsEmpty());
    m_hotKey = {};
    m_hotKeys->registerHotKey();
    EXPECT_FALSE(m_monitor.isRunning());
    EXPECT_TRUE(m_registrar.registered.contains(HotKeyId::Main));
    EXPECT_EQ(loggedLines(m_home).first(6),
              (QStringList{u"INFO Registering hotkey. displayName=⌘⇧Space modifierOnly=false"_s,
                           u"INFO Hotkey registered. displayName=⌘⇧Space"_s,
                           u"INFO Registering hotkey. displayName=⌥⌘A modifierOnly=false"_s,
                           u"ERROR Hotkey registration failed. displayName=⌥⌘A status=10"_s,
                           u"INFO Registering hotkey. displayName=右⌥ modifierOnly=true"_s,
                           u"INFO Modifier-only hotkey monitor installed. displayName=右⌥"_s}));
}

TEST_F(GlobalHotKeysTest, suspendedCombinationIsGivenBackUntilResumed)
{
    const auto isOurs = [this] { return m_registrar.registered.contains(HotKeyId::Main); };
    m_hotKeys->registerHotKey();
    m_hotKeys->suspendHotKey();
    EXPECT_FALSE(isOurs());
    // Registered meanwhile: tried at once, ours when resumed.
    m_hotKeys->registerHotKey();
    EXPECT_FALSE(isOurs());
    m_hotKeys->resumeHotKey();
    EXPECT_TRUE(isOurs());
    EXPECT_EQ(loggedLines(m_home).size(), 4);
    // Taken by another program meanwhile: said once, and not tried again.
    for (const int status : {10, 0}) {
        m_hotKeys->suspendHotKey();
        m_registrar.status = status;
        m_hotKeys->resumeHotKey();
    }
    EXPECT_FALSE(isOurs());
    EXPECT_EQ(loggedLines(m_home).sliced(4),
              QStringList{u"ERROR Hotkey registration failed. displayName=⌘⇧Space status=10"_s});
}

TEST_F(GlobalHotKeysTest, combinationThatTheUserTakesBackIsNotResumed)
{
    m_hotKeys->registerHotKey();
    m_registrar.lose(HotKeyId::Main);
    m_queue.runReady();
    EXPECT_FALSE(m_hotKeys->hasHotKey());
    m_hotKeys->suspendHotKey();
    m_hotKeys->resumeHotKey();
    EXPECT_THAT(m_registrar.registered, testing::IsEmpty());
}

TEST_F(GlobalHotKeysTest, loneModifierTogglesOnThePressEdge)
{
    using namespace ModifierFlag;
    m_hotKey = rightOption;
    m_hotKeys->registerHotKey();
    // Key, flags and the toggles so far.
    const std::tuple<quint32, quint32, std::size_t> rows[] = {
        {61, option, 1}, // press
        {61, option, 1}, // still down
        {56, option | shift, 1}, // another modifier
        {61, 0, 1}, // release
        {58, option, 1}, // the left one
        {61, option | shift, 2}, // with others held
        {61, option, 2}, // released, but the left one is held: stays down
        {61, option, 2},
        {61, 0, 2},
        {61, option, 3},
    };
    for (const auto &[keyCode, flags, toggles] : rows) {
        m_monitor.send(keyCode, flags);
        m_queue.runReady();
        EXPECT_EQ(m_actions.size(), toggles);
    }
    // In a password box of a locked screen.
    m_isKeyboardHeld = true;
    m_monitor.send(61, 0);
    m_monitor.send(61, option);
    m_queue.runReady();
    EXPECT_EQ(m_actions.size(), 3U);
    m_isKeyboardHeld = false;
    // Registering again forgets that the key is down.
    m_hotKeys->registerHotKey();
    m_monitor.send(61, option);
    m_hotKey = {};
    m_queue.runReady();
    EXPECT_EQ(m_actions.size(), 3U);
}

} // namespace
