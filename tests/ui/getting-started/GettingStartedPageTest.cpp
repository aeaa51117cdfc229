// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "APIKeyTutorialWindowController.h"
#include "AccessibleWidgets.h"
#include "Appearance.h"
#include "DeletionUndo.h"
#include "GettingStartedPage.h"
#include "MainWindowCallbacks.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const auto doubaoKey = u"豆包语音 API Key"_s;
const auto deepSeekKey = u"DeepSeek API Key"_s;
const auto savedStatus = u"已保存，可以开始使用。"_s;
const auto missingStatus = u"请把两个 API Key 都填好。"_s;

// The end of a prompt's first sentence.
QString gist(const QString &text)
{
    return text.section(u'。', 0, 0).right(4);
}

class GettingStartedPageTest : public testing::Test
{
protected:
    GettingStartedPageTest()
    {
        Appearance::install();
        m_page.load({});
        // As narrow as the smallest window leaves it.
        m_page.resize(652, 620);
        m_page.show();
        m_page.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_page));
    }

    template<typename Widget = QLineEdit>
    Widget *find(const QString &name)
    {
        return named<Widget>(m_page, name);
    }
    void click(const QString &name) { find<QAbstractButton>(name)->click(); }
    void choose(int index)
    {
        m_menu->setCurrentIndex(index);
        emit m_menu->activated(index);
    }
    QStringList takeReports() { return std::exchange(m_reports, {}); }
    // The own prompts and the chosen one, which is in brackets, then the name and the gist shown,
    // in parentheses when they can be edited, then the begin of the status and what was reported.
    QString prompts()
    {
        QStringList parts;
        for (int i = 0; i < m_menu->count(); ++i) {
            if (i == m_menu->currentIndex())
                parts << u"[%1]"_s.arg(m_menu->itemText(i));
            else if (i > 2)
                parts << m_menu->itemText(i);
        }
        parts << (m_name->isReadOnly() ? u"%1"_s : u"(%1)"_s).arg(m_name->text());
        parts << (m_text->isReadOnly() ? u"%1"_s : u"(%1)"_s).arg(gist(m_text->toPlainText()));
        parts << m_page.findChildren<QLabel *>().last()->text().left(6);
        return (parts + takeReports()).join(u' ');
    }

    QStringList m_reports;
    PromptSettings m_settings;
    const MainWindowCallbacks m_callbacks{
        .onAPIKeysSave = [this](const QString &doubao,
                                const QString &deepSeek) { m_reports << doubao + u'|' + deepSeek; },
        .onHotKeyChange = [this](const HotKeyConfig &key) { m_reports << key.displayName; },
        .onHotKeyCaptureChange = [this](bool is) { m_reports << QString::number(is); },
        .onPromptSettingsChange =
            [this](const PromptSettings &settings, const QString &text) {
                m_settings = settings;
                m_reports << gist(text);
            },
    };
    APIKeyTutorialWindowController m_tutorial;
    DeletionUndo m_deletions;
    GettingStartedPage m_page{
        m_callbacks, m_deletions, m_tutorial, [](quint32) { return QString(); }};
    QComboBox *m_menu = m_page.findChild<QComboBox *>();
    QLineEdit *m_name = find(u"指令名称"_s);
    QPlainTextEdit *m_text = find<QPlainTextEdit>(u"指令内容"_s);
};

} // namespace

TEST_F(GettingStartedPageTest, savesBothKeysOrAsksForThem)
{
    const std::tuple<QString, QString, QStringList, QString, SemanticColor> cases[] = {
        {u" a "_s, u"b\u3000"_s, {u"a|b"_s}, savedStatus, SemanticColor::Success},
        {u"a"_s, u" \u00A0"_s, {}, missingStatus, SemanticColor::Failure},
        {u"  "_s, u"b"_s, {}, missingStatus, SemanticColor::Failure},
    };
    for (const auto &[doubao, deepSeek, reports, status, color] : cases) {
        find(doubaoKey)->setText(doubao);
        find(deepSeekKey)->setText(deepSeek);
        click(u"保存 API"_s);
        EXPECT_EQ(takeReports(), reports);
        const auto *label = find<QLabel>(status);
        ASSERT_TRUE(label);
        EXPECT_EQ(label->palette().color(QPalette::WindowText), Palette::color(color));
        EXPECT_EQ(find(doubaoKey)->text(), doubao);
    }
    for (const auto &[link, title] :
         {std::pair(u"获取豆包 API 的 Wrenfold 教程"_s, doubaoKey),
          {u"获取 DeepSeek API 的 Wrenfold 教程"_s, u' ' + deepSeekKey}}) {
        click(link);
        const auto windows = QApplication::topLevelWidgets();
        EXPECT_TRUE(std::ranges::any_of(windows, [&title](const QWidget *window) {
            const auto *label = window->findChild<QLabel *>();
            return window->isVisible() && label && label->text() == u"获取"_s + title;
        })) << qPrintable(link);
    }
}

TEST_F(GettingStartedPageTest, setsTheHotKey)
{
    AppConfig config;
    config.hotKey.displayName = u"⌃K"_s;
    m_page.load(config);
    click(u"恢复默认"_s);
    EXPECT_TRUE(find<QLabel>(u"当前快捷键：⌘⇧Space"_s));
    auto *button = dynamic_cast<HotKeyCaptureButton *>(find<QPushButton>(u"⌘⇧Space"_s));
    ASSERT_TRUE(button);
    button->beginCapture();
    button->onCapture({54, 0x100, u"右⌘"_s});
    EXPECT_TRUE(find<QLabel>(u"当前快捷键：右⌘"_s));
    EXPECT_EQ(takeReports(), QStringList({u"⌘⇧Space"_s, u"1"_s, u"右⌘"_s}));
}

TEST_F(GettingStartedPageTest, copiesEditsAndDeletesPrompts)
{
    const auto copy = [this] { click(u"新增指令"_s); };
    const auto remove = [this] { click(u"删除"_s); };
    const auto save = [this] { click(u"保存指令"_s); };
    const auto edit = [&](const QString &name, const QString &text) {
        m_name->setText(name);
        m_text->setPlainText(text);
        save();
    };
    const std::pair<std::function<void()>, QString> steps[] = {
        {remove, u"[日常整理] 日常整理 入整理器 当前使用内置"_s},
        {save, u"[日常整理] 日常整理 入整理器 当前使用内置"_s},
        {[&] { choose(1); }, u"[口播文案] 口播文案 文案编辑 当前使用内置 文案编辑"_s},
        {copy, u"[口播文案副本] (口播文案副本) (文案编辑) 当前使用自定 文案编辑"_s},
        {[&] { edit(u" A "_s, u"\nB\n"_s); }, u"[A] (A) (B) 已保存并设为 B"_s},
        {copy, u"A [A副本] (A副本) (B) 当前使用自定 B"_s},
        {[&] { edit(u" "_s, u"C"_s); }, u"A [A副本] ( ) (C) 名称和指令内"_s},
        {[&] { edit(u"C"_s, u"\n"_s); }, u"A [A副本] (C) (\n) 名称和指令内"_s},
        {[&] { choose(3); }, u"[A] A副本 (A) (B) 当前使用自定 B"_s},
        {remove, u"[日常整理] A副本 日常整理 入整理器 当前使用内置 入整理器"_s},
        {[&] { choose(3); }, u"[A副本] (A副本) (B) 当前使用自定 B"_s},
    };
    for (const auto &[act, expected] : steps) {
        act();
        EXPECT_EQ(prompts().toStdString(), expected.toStdString());
    }
    static const QRegularExpression customID(u"^custom\\.[0-9A-F-]{36}$"_s);
    EXPECT_TRUE(customID.match(m_settings.selectedID).hasMatch());
    const QList<PromptDefinition> saved{{m_settings.selectedID, u"A副本"_s, u"B"_s}};
    EXPECT_EQ(m_settings.customPrompts, saved);
}

TEST_F(GettingStartedPageTest, showsWhatIsStored)
{
    find(doubaoKey)->setText(u"half typed"_s);
    AppConfig config;
    config.volcengine.apiKey = u" a"_s;
    config.deepSeek.apiKey = u"b"_s;
    config.hotKey.displayName = u"⌃K"_s;
    config.prompts.customPrompts = {{u"custom.1"_s, u"A"_s, u" \n"_s}, {u"mine"_s, u"B"_s, u"b"_s}};
    const std::pair<QString, QString> cases[] = {
        {u"custom.1"_s, u"[A] B (A) (入整理器) 当前使用自定"_s},
        {u"mine"_s, u"A [B] B b 当前使用内置"_s},
        {u"gone"_s, u"[日常整理] A B 日常整理 入整理器 当前使用内置"_s},
    };
    for (const auto &[selectedID, expected] : cases) {
        config.prompts.selectedID = selectedID;
        m_page.load(config);
        EXPECT_EQ(prompts(), expected);
    }
    EXPECT_EQ(find(doubaoKey)->text(), u" a"_s);
    EXPECT_TRUE(find<QLabel>(u"当前已配置 API Key。需要更换时直接覆盖保存。"_s));
    EXPECT_TRUE(find<QLabel>(u"当前快捷键：⌃K"_s));
    EXPECT_TRUE(find<QPushButton>(u"⌃K"_s));
    config.deepSeek.apiKey = u" \n"_s;
    m_page.load(config);
    EXPECT_TRUE(find<QLabel>(u"API Key 只保存在本机，不会被打进分享版 App。"_s));
    EXPECT_TRUE(takeReports().isEmpty());
}

TEST_F(GettingStartedPageTest, letsBuiltInPromptsBeCopiedByKeyboardOnly)
{
    QTest::keyClick(m_text, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(m_text, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"你"_s);
    QTest::keyClicks(m_text, u"x"_s);
    EXPECT_EQ(gist(m_text->toPlainText()), u"入整理器"_s);
}

TEST_F(GettingStartedPageTest, leavesTheWheelToThePage)
{
    QWheelEvent event({},
                      m_menu->mapToGlobal(QPointF()),
                      {},
                      {0, -240},
                      Qt::NoButton,
                      Qt::NoModifier,
                      Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(m_menu, &event);
    EXPECT_FALSE(event.isAccepted());
    EXPECT_EQ(m_menu->currentIndex(), 0);
}
