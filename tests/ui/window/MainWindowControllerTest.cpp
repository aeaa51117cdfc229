// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AccessibleWidgets.h"
#include "Approved.h"
#include "Description.h"
#include "HistoryStore.h"
#include "MainWindow.h"
#include "MainWindowController.h"
#include "TemporaryHome.h"
#include "WaitUntil.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QWidget *visibleWindow()
{
    for (auto *window : QApplication::topLevelWidgets())
        if (window->isVisible() && dynamic_cast<RegularWindow *>(window))
            return window;
    return nullptr;
}

// What a user has after some days.
AppConfig usedConfig()
{
    AppConfig config;
    config.volcengine.apiKey = u"voice"_s;
    config.deepSeek.apiKey = u"polish"_s;
    config.hotKey = {40, 0x1800, u"⌃⌥K"_s};
    config.prompts = {u"custom.1"_s, {{u"custom.1"_s, u"我的"_s, u"简短。\n不要客套。"_s}}};
    config.personalDictionary.terms = {u"DeepSeek"_s, u"حاسوب"_s, QString(60, u'长')};
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
        m_controller.emplace(
            *m_store, [](quint32) { return QString(); }, MainWindowCallbacks());
    }

    QWidget &show(MainWindowPage page)
    {
        m_controller->show(usedConfig(), page);
        EXPECT_TRUE(QTest::qWaitForWindowActive(visibleWindow()));
        return *visibleWindow();
    }

    const TemporaryHome m_home;
    std::optional<HistoryStore> m_store;
    std::optional<MainWindowController> m_controller;
};

} // namespace

TEST_F(MainWindowControllerTest, itsPagesLookAsApproved)
{
    const std::pair<MainWindowPage, QString> pages[] = {
        {MainWindowPage::GettingStarted, u"getting-started"_s},
        {MainWindowPage::Clipboard, u"history"_s},
        {MainWindowPage::Dictionary, u"dictionary"_s},
        {MainWindowPage::Contact, u"contact"_s},
    };
    for (const auto &[page, name] : pages) {
        EXPECT_TRUE(isApproved(name, describeInBothSchemes(show(page)))) << qPrintable(name);
    }
}

TEST_F(MainWindowControllerTest, aRefreshDiscardsWhatWasNotSavedAndShowsWhatIsNew)
{
    auto &window = show(MainWindowPage::Clipboard);
    const auto before = describe(window);
    named<QPlainTextEdit>(window, u"指令内容"_s)->setPlainText(u"half typed"_s);
    for (auto *field : window.findChildren<QLineEdit *>())
        if (!field->isReadOnly())
            field->setText(u"half typed"_s);
    m_controller->refreshIfVisible(usedConfig());
    EXPECT_FALSE(describe(window).contains("half typed"_L1));
    EXPECT_EQ(describe(window), before);
    m_store->add({}, u"全新"_s);
    m_controller->refreshIfVisible(usedConfig());
    EXPECT_TRUE(describe(window).contains(u"全新"_s));
    window.close();
    m_store->add({}, u"更新"_s);
    m_controller->refreshIfVisible(usedConfig());
    EXPECT_FALSE(m_controller->isVisible());
    EXPECT_TRUE(describe(show(MainWindowPage::Clipboard)).contains(u"更新"_s));
}
