// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppDelegate.h"
#include "FakeAudioSystem.h"
#include "FakeHotKeyRegistrar.h"
#include "FakeModifierMonitor.h"
#include "FakeSyntheticKeyboard.h"
#include "LoggedLines.h"
#include "UrlCatcher.h"
#include "WaitUntil.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class NoColorScheme final : public ColorSchemeWatch
{
public:
    void start(Handler) override {}
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
        Backends backends{
            .connection = {},
            .hotKeys = std::move(registrar),
            .modifiers = std::make_unique<FakeModifierMonitor>(),
            .keyboard = std::move(keyboard),
            .audio = std::make_unique<FakeAudioSystem>(),
            .colorScheme = std::make_unique<NoColorScheme>(),
            .trayHosts = {},
            .hasCompositor = [] { return true; },
            .keyCharacters = {},
            .handOverClipboard = [] {},
        };
        delegate.reset();
        delegate = std::make_unique<AppDelegate>(std::move(backends));
        delegate->applicationDidFinishLaunching();
    }

    QString log() const { return loggedLines(home).join(u'\n') + u'\n'; }

    static AppConfig stored() { return AppConfig::loadOrCreateTemplate().config; }

    TemporaryHome home;
    UrlCatcher browser;
    FakeHotKeyRegistrar *hotKeys = nullptr;
    std::unique_ptr<AppDelegate> delegate;
};

const HotKeyConfig controlOptionK{40, 0x1800, u"⌃⌥K"_s};
const PromptSettings scriptPrompt{u"builtin.script"_s, {{u"custom.1"_s, u"我的"_s, u"简短。"_s}}};

} // namespace

TEST_F(AppDelegateTest, SavesAndAppliesWhatTheWindowReports)
{
    launch();
    auto &window = delegate->mainWindow();
    window.onAPIKeysSave(u" voice "_s, u""_s);
    window.onHotKeyChange(controlOptionK);
    window.onPromptSettingsChange(scriptPrompt, u"文案"_s);
    window.onPersonalDictionaryChange(PersonalDictionaryConfig({u"DeepSeek"_s, u"Qt 6"_s}));

    const auto config = stored();
    EXPECT_EQ(config, delegate->config());
    EXPECT_EQ(config.volcengine.apiKey, u" voice "_s);
    EXPECT_EQ(config.hotKey, controlOptionK);
    EXPECT_EQ(config.prompts, scriptPrompt);
    EXPECT_EQ(config.polishPrompt, u"文案"_s);
    EXPECT_EQ(config.personalDictionary.terms, QStringList({u"DeepSeek"_s, u"Qt 6"_s}));
    EXPECT_EQ(hotKeys->registered.at(HotKeyId::Main), std::pair(40U, 0x1800U));
    EXPECT_TRUE(log().endsWith(u"INFO API keys saved. doubaoKeySet=true deepSeekKeySet=false\n"
                               "INFO Hotkey saved. displayName=⌃⌥K\n"
                               "INFO Registering hotkey. displayName=⌃⌥K modifierOnly=false\n"
                               "INFO Hotkey registered. displayName=⌃⌥K\n"
                               "INFO Prompt settings saved. selectedID=builtin.script\n"
                               "INFO Personal dictionary saved. terms=2\n"_s))
        << qPrintable(log());
}

TEST_F(AppDelegateTest, AFailedSaveIsShownAndTheChangeStaysForTheRun)
{
    launch();
    QFile::remove(home.path(u".wrenfold/config.json"_s));
    ASSERT_TRUE(QDir().mkpath(home.path(u".wrenfold/config.json/in-the-way"_s)));
    auto &window = delegate->mainWindow();
    const std::pair<std::function<void()>, QString> rows[] = {
        {[&] { window.onAPIKeysSave(u"voice"_s, u"polish"_s); }, u"API key"_s},
        {[&] { window.onHotKeyChange(controlOptionK); }, u"Hotkey"_s},
        {[&] { window.onPromptSettingsChange(scriptPrompt, u"文案"_s); }, u"Prompt settings"_s},
        {[&] { window.onPersonalDictionaryChange({}); }, u"Personal dictionary"_s},
    };
    for (const auto &[change, line] : rows) {
        change();
        EXPECT_TRUE(log().contains(u"\nERROR "_s + line + u" save failed. error="_s))
            << qPrintable(line);
        auto *alert = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        ASSERT_NE(alert, nullptr) << qPrintable(line);
        EXPECT_TRUE(alert->icon() == QMessageBox::Warning && alert->text() == "Wrenfold"_L1);
        EXPECT_TRUE(alert->informativeText().contains(u"config.json"_s));
        alert->accept();
    }
    EXPECT_EQ(delegate->config().deepSeek.apiKey, u"polish"_s);
    EXPECT_EQ(delegate->config().hotKey, controlOptionK);
    EXPECT_EQ(hotKeys->registered.at(HotKeyId::Main), std::pair(49U, 0x300U));
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
