// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ContactPage.h"
#include "MainWindowCallbacks.h"
#include "TemporaryHome.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// What the page's lines that can be copied say, each with what it is about.
QStringList lines(const ContactPage &page)
{
    QStringList result;
    for (const auto *line : page.findChildren<QLineEdit *>())
        result.append(line->accessibleName() + u' ' + line->text());
    return result;
}

bool shows(const ContactPage &page, const QString &text)
{
    const auto labels = page.findChildren<QLabel *>();
    return std::ranges::any_of(labels, [&](const QLabel *label) { return label->text() == text; });
}

} // namespace

TEST(ContactPage, showsTheDetailsItIsGiven)
{
    const auto log = u"日志文件 ~/.wrenfold/logs/wrenfold.log"_s;
    const QStringList channels{u"公众号 小鹩"_s, u"视频号 小鹩"_s, u"小宇宙 小鹩"_s};
    const QStringList account{u"微信号 wren_1"_s};
    const QStringList mail{u"邮箱 w@example.org"_s};
    const std::tuple<ContactDetails, QStringList, bool> cases[] = {
        {{}, {log}, false},
        {{.name = u"鹩哥"_s}, {log}, true},
        {{.name = u"鹩哥"_s, .messagingID = u"wren_1"_s}, account + QStringList{log}, true},
        {{.channel = u"小鹩"_s, .email = u"w@example.org"_s},
         channels + mail + QStringList{log},
         true},
        {{u"鹩哥"_s, u"小鹩"_s, u"wren_1"_s, u"w@example.org"_s},
         channels + account + mail + QStringList{log},
         true},
    };
    for (const auto &[details, expected, hasCard] : cases) {
        const MainWindowCallbacks callbacks;
        const ContactPage page(callbacks, details);
        EXPECT_EQ(lines(page), expected);
        EXPECT_EQ(shows(page, u"Wrenfold 作者"_s), hasCard);
        EXPECT_EQ(shows(page, u"鹩哥"_s), !details.name.isEmpty());
        EXPECT_TRUE(shows(page, u"故障诊断"_s));
    }
}

TEST(ContactPage, letsAShortenedLineBeCopiedWhole)
{
    const auto address = QString(200, u'w') + u"@example.org"_s;
    const MainWindowCallbacks callbacks;
    const ContactPage page(callbacks, {.email = address});
    auto *line = page.findChild<QLineEdit *>();
    line->resize(100, 24);
    EXPECT_TRUE(line->isReadOnly());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(line)->text(QAccessible::Value), address);
    line->selectAll();
    line->copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), address);
}

TEST(ContactPage, asksForTheLogFolder)
{
    int requests = 0;
    const MainWindowCallbacks callbacks{.onOpenLogFolder = [&requests] { ++requests; }};
    ContactPage(callbacks).findChild<QPushButton *>()->click();
    EXPECT_EQ(requests, 1);
}
