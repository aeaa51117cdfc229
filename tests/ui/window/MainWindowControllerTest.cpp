// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AccessibleWidgets.h"
#include "Approved.h"
#include "Description.h"
#include "HistoryStore.h"
#include "MainWindow.h"
#include "MainWindowController.h"
#include "TemporaryHome.h"
#include "VirtualMainQueue.h"

#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// What a user has after some days.
AppConfig usedConfig()
{
    AppConfig config;
    config.volcengine.apiKey = u"voice"_s;
    config.deepSeek.apiKey = u"polish"_s;
    config.hotKey = {40, 0x1800, u"⌃⌥K"_s};
    config.prompts = {u"custom.1"_s,
                      {{u"custom.1"_s, u"我的"_s, u"简短。\n不要客套。"_s},
                       {u"custom.2"_s, u"空的"_s, u" \n"_s}}};
    config.personalDictionary.terms = {
        u"DeepSeek"_s, u"حاسوب"_s, u"deepseek"_s, QString(60, u'长')};
    return config;
}

class MainWindowControllerTest : public testing::Test
{
protected:
    MainWindowControllerTest()
    {
        standardizeLook();
        m_home.write(u".wrenfold/history.json"_s,
                     uR"([{"id": "00000000-0000-0000-0000-000000000002", "createdAt": 90000,
                           "transcript": "", "polished": "%1"},
                          {"id": "00000000-0000-0000-0000-000000000001", "createdAt": 60,
                           "transcript": "", "polished": "早安"}])"_s
                         .arg(u"这一段很长，要占四行以上，才看得出它在哪里断开。"_s.repeated(12))
                         .toUtf8());
        m_store.emplace();
        launch();
    }

    void launch()
    {
        m_controller.emplace(
            m_queue, *m_store, [](quint32) { return QString(); }, callbacks());
    }

    MainWindowCallbacks callbacks()
    {
        const auto report = [this](const QString &what) { m_reports << what; };
        return {
            .onAPIKeysSave = [=](const QString &voice,
                                 const QString &polish) { report(voice + u'|' + polish); },
            .onHotKeyChange = [=](const HotKeyConfig &key) { report(key.displayName); },
            .onHotKeyCaptureChange = [=](bool is) { report(is ? u"capturing"_s : u"captured"_s); },
            .onPromptSettingsChange =
                [=](const PromptSettings &settings, const QString &text) {
                    for (const auto &prompt : settings.customPrompts)
                        report((prompt.id == settings.selectedID ? u"*"_s : u""_s) + prompt.name
                               + u'=' + prompt.text);
                    report(u"active "_s + text.left(8));
                },
            .onPersonalDictionaryChange =
                [=](const PersonalDictionaryConfig &dictionary) {
                    report(dictionary.terms.mid(0, 6).join(u' '));
                },
        };
    }

    MainWindow &window()
    {
        for (auto *window : QApplication::topLevelWidgets())
            if (auto *main = dynamic_cast<MainWindow *>(window); main && main->isVisible())
                return *main;
        throw std::runtime_error("the window is not shown");
    }
    void show(MainWindowPage page, const AppConfig &config = usedConfig())
    {
        m_controller->show(config, page);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    }
    void begin(MainWindowPage page)
    {
        show(page);
        m_story.emplace(window());
    }
    void tell(const QString &step)
    {
        const auto reports = std::exchange(m_reports, {}).join(u"; "_s);
        m_story->tell(reports.isEmpty() ? step : step + u" reports "_s + reports);
    }
    template<typename Widget>
    Widget *find(const QString &name)
    {
        return named<Widget>(window(), name);
    }
    void click(const QString &name)
    {
        find<QAbstractButton>(name)->click();
        tell(name);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        auto *focused = QApplication::focusWidget();
        QTest::keyClick(focused ? focused : &window(), key, modifiers);
        tell(QKeySequence(key | modifiers).toString());
    }

    const TemporaryHome m_home;
    VirtualMainQueue m_queue;
    QStringList m_reports;
    std::optional<HistoryStore> m_store;
    std::optional<MainWindowController> m_controller;
    std::optional<Story> m_story;
};

} // namespace

TEST_F(MainWindowControllerTest, itsPagesLookAsApproved)
{
    const std::tuple<MainWindowPage, AppConfig, QString> pages[] = {
        {MainWindowPage::GettingStarted, {}, u"getting-started-new"_s},
        {MainWindowPage::GettingStarted, usedConfig(), u"getting-started"_s},
        {MainWindowPage::Clipboard, usedConfig(), u"history"_s},
        {MainWindowPage::Dictionary, usedConfig(), u"dictionary"_s},
        {MainWindowPage::Dictionary, {}, u"dictionary-empty"_s},
        {MainWindowPage::Contact, {}, u"contact"_s},
    };
    for (const auto &[page, config, name] : pages) {
        show(page, config);
        EXPECT_TRUE(isApproved(name, describeInBothSchemes(window()))) << qPrintable(name);
    }
}

TEST_F(MainWindowControllerTest, itsKeysAndHotKeyAreSetAsApproved)
{
    begin(MainWindowPage::GettingStarted);
    const std::pair<QString, QString> keys[] = {
        {u" a "_s, u"b\u3000"_s}, {u"a"_s, u" \u00A0"_s}, {u"  "_s, u"b"_s}};
    for (const auto &[voice, polish] : keys) {
        find<QLineEdit>(u"豆包语音 API Key"_s)->setText(voice);
        find<QLineEdit>(u"DeepSeek API Key"_s)->setText(polish);
        click(u"保存 API"_s);
    }
    click(u"恢复默认"_s);
    auto *button = dynamic_cast<HotKeyCaptureButton *>(find<QPushButton>(u"⌘⇧Space"_s));
    ASSERT_TRUE(button);
    button->setFocus();
    press(Qt::Key_Return);
    button->onCapture({54, 0x100, u"右⌘"_s});
    tell(u"captured"_s);
    EXPECT_TRUE(isApproved(u"story-keys"_s, m_story->text()));
}

TEST_F(MainWindowControllerTest, itsPromptsAreEditedAsApproved)
{
    begin(MainWindowPage::GettingStarted);
    auto *menu = window().findChild<QComboBox *>();
    auto *text = find<QPlainTextEdit>(u"指令内容"_s);
    const auto choose = [&](int index) {
        menu->setCurrentIndex(index);
        emit menu->activated(index);
        tell(u"chosen %1"_s.arg(index));
    };
    const auto save = [&](const QString &name, const QString &content) {
        find<QLineEdit>(u"指令名称"_s)->setText(name);
        text->setPlainText(content);
        click(u"保存指令"_s);
    };
    save(u" A "_s, u"\nB\u00A0C\n"_s);
    save(u" "_s, u"D"_s);
    save(u"D"_s, u"\n"_s);
    choose(4);
    click(u"新增指令"_s);
    click(u"删除"_s);
    for (const auto &name : {u"删除"_s, u"保存指令"_s})
        click(name);
    press(Qt::Key_Z, Qt::ControlModifier);
    choose(1);
    QTest::keyClick(text, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(text, Qt::Key_X);
    QInputMethodEvent composed;
    composed.setCommitString(u"你好"_s);
    QApplication::sendEvent(text, &composed);
    tell(u"typed into a built-in prompt"_s);
    auto config = usedConfig();
    config.prompts.selectedID = u"gone"_s;
    m_controller->refreshIfVisible(config);
    tell(u"an unknown prompt"_s);
    EXPECT_TRUE(isApproved(u"story-prompts"_s, m_story->text()));
}

TEST_F(MainWindowControllerTest, itsDictionaryGrowsAndShrinksAsApproved)
{
    begin(MainWindowPage::Dictionary);
    auto *field = find<QLineEdit>(u"添加新词"_s);
    for (const auto &terms : {u"DeepSeek\n多   空格\r\nCursor"_s,
                              u"cursor、Vue.js"_s,
                              u"cursor"_s,
                              u" \n"_s,
                              u"猫，！、X!"_s}) {
        field->setText(terms);
        click(u"添加"_s);
    }
    field->setText(u"Return"_s);
    field->setFocus();
    press(Qt::Key_Tab);
    field->setFocus();
    press(Qt::Key_Return);
    click(u"词条 DeepSeek"_s);
    press(Qt::Key_Z, Qt::ControlModifier);
    find<QAbstractButton>(u"词条 多 空格"_s)->setFocus();
    press(Qt::Key_Space);
    press(Qt::Key_Return);
    AppConfig full;
    for (int i = 0; i < PersonalDictionaryConfig::maxTerms; ++i)
        full.personalDictionary.terms << u"term %1"_s.arg(i);
    m_controller->refreshIfVisible(full);
    m_story->begin();
    field->setText(u"another"_s);
    click(u"添加"_s);
    EXPECT_TRUE(isApproved(u"story-dictionary"_s, m_story->text()));
}

TEST_F(MainWindowControllerTest, itsHistoryIsUsedByKeyboardAsApproved)
{
    begin(MainWindowPage::GettingStarted);
    press(Qt::Key_2, Qt::ControlModifier);
    find<QAbstractButton>(u"联系作者"_s)->setFocus();
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    press(Qt::Key_Return);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(HistoryStore().items(), m_store->items());
    for (int i = 0; i < 2; ++i)
        click(u"删除转录"_s);
    EXPECT_TRUE(isApproved(u"story-history"_s, m_story->text()));
}

TEST_F(MainWindowControllerTest, aRefreshDiscardsWhatWasNotSavedAndShowsWhatIsNew)
{
    show(MainWindowPage::Clipboard);
    const auto before = describe(window());
    find<QPlainTextEdit>(u"指令内容"_s)->setPlainText(u"half typed"_s);
    for (auto *field : window().findChildren<QLineEdit *>())
        if (!field->isReadOnly())
            field->setText(u"half typed"_s);
    m_controller->refreshIfVisible(usedConfig());
    EXPECT_EQ(describe(window()), before);
    show(MainWindowPage::GettingStarted);
    EXPECT_FALSE(describe(window()).contains("half typed"_L1));
    show(MainWindowPage::Clipboard);
    m_store->add({}, u"全新"_s);
    m_controller->refreshIfVisible(usedConfig());
    EXPECT_TRUE(describe(window()).contains(u"全新"_s));
}

TEST_F(MainWindowControllerTest, aClosedWindowGivesItsSurfaceBackAndComesBackAsLarge)
{
    show(MainWindowPage::Clipboard);
    auto *const first = &window();
    first->resize(860, 700);
    for (const auto key : {Qt::Key_W, Qt::Key_Escape}) {
        QTest::keyClick(first, key, key == Qt::Key_W ? Qt::ControlModifier : Qt::NoModifier);
        EXPECT_FALSE(m_controller->isVisible());
        m_queue.advance(20s);
        m_store->add({}, u"更新"_s);
        m_controller->refreshIfVisible(usedConfig());
        EXPECT_TRUE(first->windowHandle() && !m_controller->hasVisibleWindow());
        show(MainWindowPage::Clipboard);
    }
    EXPECT_TRUE(describe(window()).contains(u"更新"_s));
    m_queue.advance(20s); // the first closing is half a minute ago
    first->showMinimized();
    show(MainWindowPage::Clipboard);
    EXPECT_FALSE(first->isMinimized());
    first->close();
    m_queue.advance(30s);
    EXPECT_EQ(first->windowHandle(), nullptr);
    show(MainWindowPage::Clipboard);
    EXPECT_EQ(window().size(), QSize(860, 700));
}

TEST_F(MainWindowControllerTest, itsSizeIsKeptAcrossLaunchesAndFitsTheScreen)
{
    show(MainWindowPage::Contact);
    window().resize(870, 640);
    m_controller->keepSize();
    const auto kept = m_home.read(u".wrenfold/window.json"_s);
    const QSize initial(920, 680);
    const QSize whole = window().screen()->availableSize().expandedTo({860, 620});
    const std::pair<QByteArray, QSize> rows[] = {{kept, whole.boundedTo({870, 640})},
                                                 {R"({"height": 65000, "width": 65000})", whole},
                                                 {R"({"height": 1, "width": 1})", {860, 620}},
                                                 {R"({"height": -640, "width": 870})", initial},
                                                 {R"({"height": 640})", initial},
                                                 {"{", initial},
                                                 {"", initial}};
    for (const auto &[content, expected] : rows) {
        m_home.write(u".wrenfold/window.json"_s, content);
        launch();
        show(MainWindowPage::Contact);
        EXPECT_EQ(window().size(), expected) << content.constData();
    }
}
