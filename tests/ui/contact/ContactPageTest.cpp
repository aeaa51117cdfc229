// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Approved.h"
#include "ContactPage.h"
#include "Description.h"
#include "MainWindowCallbacks.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ContactPage, looksAsApprovedWithAllDetails)
{
    standardizeLook();
    const MainWindowCallbacks callbacks;
    ContactPage page(callbacks, {u"鹩哥"_s, u"小鹩"_s, u"wren_1"_s, u"w@example.org"_s});
    page.resize(712, 680);
    page.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page)); // that moves the focus
    EXPECT_TRUE(isApproved(u"contact-details"_s, describeInBothSchemes(page)));
}

TEST(ContactPage, leavesOutTheDetailsItIsNotGiven)
{
    const std::pair<ContactDetails, QString> cases[] = {
        {{.messagingID = u"wren_1"_s}, u"微信号 日志文件"_s},
        {{.channel = u"小鹩"_s, .email = u"w@example.org"_s},
         u"公众号 视频号 小宇宙 邮箱 日志文件"_s},
    };
    const MainWindowCallbacks callbacks;
    for (const auto &[details, expected] : cases) {
        QStringList names;
        const ContactPage page(callbacks, details);
        for (const auto *line : page.findChildren<QLineEdit *>())
            names << line->accessibleName();
        EXPECT_EQ(names.join(u' '), expected);
    }
}

TEST(ContactPage, letsAShortenedLineBeCopiedWholeAndAsksForTheLogFolder)
{
    int requests = 0;
    const MainWindowCallbacks callbacks{.onOpenLogFolder = [&requests] { ++requests; }};
    const auto address = QString(200, u'w') + u"@example.org"_s;
    const ContactPage page(callbacks, {.email = address});
    auto *line = page.findChild<QLineEdit *>();
    line->resize(100, 24);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(line)->text(QAccessible::Value), address);
    line->selectAll();
    line->copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), address);
    page.findChild<QPushButton *>()->click();
    EXPECT_EQ(requests, 1);
}
