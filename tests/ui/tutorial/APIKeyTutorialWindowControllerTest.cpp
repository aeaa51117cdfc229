// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "APIKeyConfigurationWindowController.h"
#include "APIKeyTutorialWindowController.h"
#include "Approved.h"
#include "Description.h"
#include "UrlCatcher.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// The text with "<address>" behind each link.
QString marked(const QTextDocumentFragment &body)
{
    QTextDocument document;
    QTextCursor(&document).insertFragment(body);
    QStringList lines;
    for (auto block = document.begin(); block.isValid(); block = block.next()) {
        lines << QString();
        for (const auto &range : block.textFormats()) {
            lines.last() += block.text().sliced(range.start, range.length);
            if (range.format.isAnchor() && range.format.fontUnderline())
                lines.last() += u'<' + range.format.anchorHref() + u'>';
        }
    }
    return lines.join(u'\n');
}

} // namespace

TEST(APIKeyTutorialWindowControllerTest, turnsLinkNotationIntoLinks)
{
    const std::pair<QString, QString> cases[] = {
        {u"一\n\n[二] (三)"_s, u"一\n\n[二] (三)"_s},
        {u"[a](https://x.cn/)和[b](http://y.cn/c?d#e)。"_s,
         u"a<https://x.cn/>和b<http://y.cn/c?d#e>。"_s},
        {u"x[a\nb](https://x.cn/)"_s, u"xa<https://x.cn/>\nb<https://x.cn/>"_s},
        {u"[a](ftp://x.cn/) [b](HTTPS://x.cn/)"_s, u"[a](ftp://x.cn/) [b](HTTPS://x.cn/)"_s},
        {u"[a](https://x.cn/b c) [](https://x.cn/)"_s,
         u"[a](https://x.cn/b c) [](https://x.cn/)"_s},
        {u"[a](https://x.cn/b)c)"_s, u"a<https://x.cn/b>c)"_s},
        {u"[a](https://x.cn:port/)b"_s, u"ab"_s},
        {{}, {}},
    };
    for (const auto &[body, expected] : cases)
        EXPECT_EQ(marked(APIKeyTutorialWindowController::attributedTutorialBody(body)), expected);
}

TEST(APIKeyTutorialWindowControllerTest, showsBothTutorialsInOneWindowWhoseLinksOpen)
{
    using namespace APIKeyConfigurationWindowController;
    UrlCatcher browser(u"https"_s);
    APIKeyTutorialWindowController controller;
    controller.show(u"一"_s, doubaoTutorialText());
    auto *window = QApplication::topLevelWidgets().value(0);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    auto *view = window->findChild<QTextBrowser *>();
    view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum());
    controller.show(u"二"_s, deepSeekTutorialText());
    EXPECT_EQ(QApplication::topLevelWidgets(), QWidgetList{window});
    EXPECT_EQ(view->verticalScrollBar()->value(), 0);
    // By keyboard, then by mouse.
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(view, Qt::Key_Tab);
        QTest::keyClick(view, Qt::Key_Return);
    }
    controller.show({}, u"[a](https://x.cn/)"_s);
    const auto place = view->cursorRect().center() + QPoint(2, 0);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
    const QList<QUrl> links{QUrl(u"https://platform.deepseek.com/"_s),
                            QUrl(u"https://platform.deepseek.com/api_keys"_s),
                            QUrl(u"https://api-docs.deepseek.com/"_s),
                            QUrl(u"https://x.cn/"_s)};
    EXPECT_EQ(browser.opened, links);
}

TEST(APIKeyTutorialWindowControllerTest, looksAsApproved)
{
    using namespace APIKeyConfigurationWindowController;
    standardizeLook();
    APIKeyTutorialWindowController controller;
    for (const auto &[name, text] : {std::pair(u"tutorial-doubao"_s, doubaoTutorialText()),
                                     {u"tutorial-deepseek"_s, deepSeekTutorialText()}}) {
        controller.show(u"获取 API Key"_s, text);
        auto *window = QApplication::topLevelWidgets().value(0);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
        EXPECT_TRUE(isApproved(name, describeInBothSchemes(*window)));
    }
}
