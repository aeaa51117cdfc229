// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppDelegate.h"
#include "EventLoopMainQueue.h"
#include "FakeAudioSystem.h"
#include "FakeClipboard.h"
#include "FakeHotKeyRegistrar.h"
#include "FakeModifierMonitor.h"
#include "FakeSessionLock.h"
#include "FakeSyntheticKeyboard.h"
#include "LoggedLines.h"
#include "UrlCatcher.h"
#include "WaitUntil.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class NoColorScheme final : public ColorSchemeWatch
{
public:
    void start(Handler) override {}
};

class NoOtherWindow final : public FocusReturn
{
public:
    bool returnFocus() override { return false; }
};

class AppDelegateTest : public testing::Test
{
protected:
    // Launches with the desktop's parts as fakes; false is a keyboard we may not post to.
    void launch(bool isTrusted = true)
    {
        auto registrar = std::make_unique<FakeHotKeyRegistrar>();
        auto keyboard = std::make_unique<FakeSyntheticKeyboard>();
        keyboard->trusted = isTrusted;
        hotKeys = registrar.get();
        auto copies = std::make_unique<FakeClipboard>();
        clipboard = copies.get();
        Backends backends{
            .connection = {},
            .hotKeys = std::move(registrar),
            .modifiers = std::make_unique<FakeModifierMonitor>(),
            .keyboard = std::move(keyboard),
            .clipboard = std::move(copies),
            .overlay = {},
            .focusReturn = std::make_unique<NoOtherWindow>(),
            .sessionLock = std::make_unique<FakeSessionLock>(),
            .audio = std::make_unique<FakeAudioSystem>(),
            .colorScheme = std::make_unique<NoColorScheme>(),
            .trayHosts = {},
            .hasCompositor = [] { return true; },
            .workArea = &QScreen::availableGeometry,
            .keyCharacters = {},
            .usesXWayland = false,
            .ways = {},
        };
        delegate.reset();
        delegate = std::make_unique<AppDelegate>(mainQueue, std::move(backends));
        delegate->applicationDidFinishLaunching();
    }

    QString log() const { return loggedLines(home).join(u'\n') + u'\n'; }

    static AppConfig stored() { return AppConfig::loadOrCreateTemplate().config; }

    TemporaryHome home;
    UrlCatcher browser;
    FakeHotKeyRegistrar *hotKeys = nullptr;
    EventLoopMainQueue mainQueue;
    FakeClipboard *clipboard = nullptr;
    std::unique_ptr<AppDelegate> delegate;
};

} // namespace

TEST_F(AppDelegateTest, SavesAndAppliesWhatTheWindowReportsAndShowsWhatCannotBeSaved)
{
    launch();
    const auto &window = delegate->mainWindow().callbacks();
    const HotKeyConfig hotKey{40, 0x1800, u"⌃⌥K"_s};
    const PromptSettings prompts{u"builtin.script"_s, {{u"custom.1"_s, u"我的"_s, u"简短。"_s}}};
    // What is reported, and what is logged of it.
    const std::tuple<std::function<void()>, QString, QString> rows[] = {
        {[&] { window.onAPIKeysSave(u" voice "_s, u""_s); },
         u"API key"_s,
         u"s saved. doubaoKeySet=true deepSeekKeySet=false"_s},
        {[&] { window.onHotKeyChange(hotKey); }, u"Hotkey"_s, u" saved. displayName=⌃⌥K"_s},
        {[&] { window.onPromptSettingsChange(prompts, u"文案"_s); },
         u"Prompt settings"_s,
         u" saved. selectedID=builtin.script"_s},
        {[&] { window.onPersonalDictionaryChange(PersonalDictionaryConfig({u"Qt 6"_s})); },
         u"Personal dictionary"_s,
         u" saved. terms=1"_s}};
    AppConfig expected;
    expected.volcengine.apiKey = u" voice "_s;
    expected.hotKey = hotKey;
    expected.prompts = prompts;
    expected.polishPrompt = u"文案"_s;
    expected.personalDictionary.terms = QStringList{u"Qt 6"_s};
    const auto file = home.path(u".wrenfold/config.json"_s);
    for (const bool canSave : {false, true}) {
        QFile::remove(file);
        ASSERT_TRUE(canSave ? QDir(file).removeRecursively() : QDir().mkpath(file + u"/full"_s));
        for (const auto &[change, subject, success] : rows) {
            change();
            const auto line = canSave ? u"INFO "_s + subject + success
                                      : u"ERROR "_s + subject + u" save failed. error="_s;
            EXPECT_TRUE(log().contains(u'\n' + line)) << qPrintable(line);
            auto *alert = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            ASSERT_EQ(alert == nullptr, canSave) << qPrintable(line);
            if (canSave)
                continue;
            EXPECT_TRUE(alert->icon() == QMessageBox::Warning && alert->text() == "Wrenfold"_L1);
            EXPECT_TRUE(alert->informativeText().contains(u"config.json"_s));
            alert->accept();
        }
        // What cannot be saved stays in force for this run, but is not applied.
        EXPECT_EQ(delegate->config(), expected);
        EXPECT_EQ(hotKeys->registered.at(HotKeyId::Main),
                  canSave ? std::pair(40U, 0x1800U) : std::pair(49U, 0x300U));
    }
    EXPECT_EQ(stored(), expected);
}

TEST_F(AppDelegateTest, AConfigurationThatCannotBeReadIsSetAsideBeforeTheFirstSave)
{
    const auto file = home.path(u".wrenfold/config.json"_s);
    const std::function<void()> rows[] = {
        [&] { home.write(u".wrenfold/config.json"_s, "{\"hotKey\": 1}"); },
        [&] { home.write(u".wrenfold/config.json"_s, "{"); },
        [&] { QFile::link(u"not-mounted/config.json"_s, file); }};
    qsizetype kept = 0;
    for (const auto &spoil : rows) {
        QFile::remove(file);
        spoil();
        const auto content = home.read(u".wrenfold/config.json"_s);
        launch();
        EXPECT_EQ(delegate->config(), AppConfig());
        EXPECT_EQ(home.read(u".wrenfold/config.json"_s), content);
        EXPECT_EQ(log().count(u"\nERROR Config load failed. error="_s), ++kept);
        for (const auto &key : {u"voice"_s, u"again"_s}) {
            delegate->updateAPIKeys(key, u""_s);
            EXPECT_EQ(stored(), delegate->config());
        }
        const QRegularExpression told(
            u"\nWARN Unreadable config set aside. path=(\\S+)\n(?!.*WARN)"_s,
            QRegularExpression::DotMatchesEverythingOption);
        const QFileInfo aside(told.match(log()).captured(1));
        EXPECT_TRUE(aside.isSymLink() || home.read(u".wrenfold/"_s + aside.fileName()) == content);
        const QDir directory(home.path(u".wrenfold"_s));
        EXPECT_EQ(
            directory.entryList({u"config.unreadable-*"_s}, QDir::AllEntries | QDir::System).size(),
            kept);
    }
}

TEST_F(AppDelegateTest, WhoRaisesAnAlertIsToldThatItWasDismissed)
{
    launch();
    bool isDismissed = false;
    delegate->showAlert(u"text"_s, [&isDismissed] { isDismissed = true; });
    qobject_cast<QMessageBox *>(QApplication::activeModalWidget())->accept();
    EXPECT_TRUE(isDismissed);
}

TEST_F(AppDelegateTest, AHistoryTextIsCopiedToTheDesktopsClipboard)
{
    launch();
    delegate->mainWindow().callbacks().onCopyHistory(u"早安"_s);
    EXPECT_EQ(clipboard->text, u"早安"_s);
}

TEST_F(AppDelegateTest, WithoutThePermissionToPostInputTheHelpPageOpens)
{
    launch(false);
    EXPECT_TRUE(log().contains(u"\nWARN "_s));
    ASSERT_TRUE(waitUntil([this] { return !browser.opened.isEmpty(); }));
    QFile page(browser.opened.constFirst().toLocalFile());
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    EXPECT_TRUE(page.readAll().contains("XTEST"));
    EXPECT_TRUE(log().contains(u"Opening accessibility permission settings."_s));
}
