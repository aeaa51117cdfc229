// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DeletionUndo.h"
#include "DictionaryChipButton.h"
#include "DictionaryPage.h"
#include "MainWindowCallbacks.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class DictionaryPageTest : public testing::Test
{
protected:
    void load(const QStringList &terms)
    {
        PersonalDictionaryConfig dictionary;
        dictionary.terms = terms;
        m_page.load(dictionary);
    }

    // By the button, or by Return.
    void add(const QString &text, bool isByKey = false)
    {
        m_field->setText(text);
        if (isByKey)
            QTest::keyClick(m_field, Qt::Key_Return);
        else
            m_page.findChild<QPushButton *>()->click();
    }

    std::vector<DictionaryChipButton *> chips()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        std::vector<DictionaryChipButton *> result;
        for (auto *button : m_page.findChildren<QAbstractButton *>()) {
            if (auto *chip = dynamic_cast<DictionaryChipButton *>(button))
                result.push_back(chip);
        }
        return result;
    }

    QStringList terms()
    {
        QStringList result;
        for (const auto *chip : chips())
            result.append(chip->term());
        return result;
    }

    // Whether a label that can be seen has this text.
    bool shows(const QString &text) const
    {
        const auto labels = m_page.findChildren<QLabel *>();
        return std::ranges::any_of(labels, [&](const QLabel *label) {
            return label->text() == text && label->isVisibleTo(&m_page);
        });
    }

    std::vector<QStringList> m_reported;
    const MainWindowCallbacks m_callbacks{
        .onPersonalDictionaryChange = [this](const PersonalDictionaryConfig &dictionary) {
            m_reported.push_back(dictionary.terms);
        }};
    DeletionUndo m_deletions;
    DictionaryPage m_page{m_callbacks, m_deletions};
    QLineEdit *m_field = m_page.findChild<QLineEdit *>();
};

QStringList numberedTerms(int count)
{
    QStringList terms;
    for (int i = 0; i < count; ++i)
        terms.append(u"term %1"_s.arg(i));
    return terms;
}

} // namespace

TEST_F(DictionaryPageTest, addsWhatIsNewAndSaysSo)
{
    const QStringList three{u"DeepSeek"_s, u"多 空格"_s, u"Cursor"_s};
    const auto four = three + QStringList{u"Vuejs"_s};
    // What is stored, what is added, what is shown and reported then, and the status.
    const std::tuple<QStringList, QString, QStringList, QString> cases[] = {
        {{}, u"DeepSeek\n多   空格\r\nCursor"_s, three, u"已保存 3 个词。最多保存 300 个。"_s},
        {three, u"deepseek、Vue.js"_s, four, u"已保存 4 个词。最多保存 300 个。"_s},
        {three, u"deepseek"_s, three, u"这些词已经在词库里。"_s},
        {numberedTerms(299),
         u"term 299，term 300"_s,
         numberedTerms(300),
         u"已保存 300 个词。最多保存 300 个。"_s},
        {numberedTerms(300), u"another"_s, numberedTerms(300), u"这些词已经在词库里。"_s},
    };
    for (const auto &[stored, input, expected, status] : cases) {
        load(stored);
        m_reported.clear();
        add(input, stored.isEmpty());
        EXPECT_EQ(terms(), expected);
        EXPECT_EQ(m_reported, std::vector{expected});
        EXPECT_TRUE(shows(status)) << status.toStdString();
        EXPECT_EQ(m_field->text(), QString());
    }
}

TEST_F(DictionaryPageTest, keepsAnInputWithoutATerm)
{
    load({u"Cursor"_s});
    for (const auto &input : {u""_s, u" \n"_s, u"猫，！、X!"_s}) {
        add(input);
        EXPECT_TRUE(shows(u"请输入至少一个有效词。"_s));
        EXPECT_EQ(m_field->text(), input);
    }
    EXPECT_TRUE(m_reported.empty());
    EXPECT_EQ(terms(), QStringList(u"Cursor"_s));
}

TEST_F(DictionaryPageTest, deletesATermInEverySpelling)
{
    load({u"DeepSeek"_s, u"Cursor"_s, u"deepseek"_s});
    chips().front()->click();
    EXPECT_EQ(terms(), QStringList(u"Cursor"_s));
    EXPECT_TRUE(shows(u"已保存 1 个词。最多保存 300 个。"_s));
    chips().front()->click();
    EXPECT_TRUE(shows(u"已清空词库。"_s));
    EXPECT_TRUE(shows(u"还没有添加词。可以先试试：Wrenfold、DeepSeek、Claude Code、Cursor。"_s));
    EXPECT_EQ(m_reported, (std::vector<QStringList>{{u"Cursor"_s}, {}}));
}

TEST_F(DictionaryPageTest, loadsWithoutReporting)
{
    EXPECT_TRUE(shows(u"未配置个人词库。"_s));
    m_field->setText(u"half a te"_s);
    load({u"Cursor"_s, u"X!"_s});
    EXPECT_EQ(terms(), QStringList({u"Cursor"_s, u"X!"_s})); // as stored
    EXPECT_TRUE(shows(u"当前 2 个词。最多保存 300 个。"_s));
    EXPECT_EQ(m_field->text(), QString());
    load({});
    EXPECT_TRUE(shows(u"未配置个人词库。"_s));
    EXPECT_TRUE(m_reported.empty());
}

TEST_F(DictionaryPageTest, isUsedByKeyboard)
{
    load({u"one"_s, u"two"_s, u"three"_s});
    m_page.show();
    m_page.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_page));
    m_field->setFocus();
    for (int i = 0; i < 3; ++i) // over the button and the first chip
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(chips()[1]->hasFocus());
    for (const auto &next : {u"three"_s, u"one"_s, QString()}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        const auto *chip = dynamic_cast<DictionaryChipButton *>(QApplication::focusWidget());
        EXPECT_EQ(chip ? chip->term() : QString(), next);
    }
    EXPECT_TRUE(m_field->hasFocus());
}
