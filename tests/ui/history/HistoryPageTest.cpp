// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DeletionUndo.h"
#include "HistoryPage.h"
#include "HistoryRowView.h"
#include "HistoryStore.h"
#include "MainWindowCallbacks.h"
#include "TemporaryHome.h"
#include "WaitUntil.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QHoverEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QUuid>

#include <ctime>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const auto referenceDate = QDateTime(QDate(2001, 1, 1), QTime(), Qt::UTC);

class HistoryPageTest : public testing::Test
{
protected:
    ~HistoryPageTest() override { setTimeZone({}); }

    static void setTimeZone(const QByteArray &name)
    {
        name.isEmpty() ? qunsetenv("TZ") : qputenv("TZ", name);
        tzset();
    }

    // Items of these moments, as "2026-03-01T23:59:00Z", with the texts "0", "1" …
    void open(const QStringList &moments)
    {
        QJsonArray items;
        for (const auto &moment : moments)
            items.append(QJsonObject{
                {u"id"_s, QUuid::createUuid().toString(QUuid::WithoutBraces)},
                {u"createdAt"_s, referenceDate.secsTo(QDateTime::fromString(moment, Qt::ISODate))},
                {u"transcript"_s, u"raw"_s},
                {u"polished"_s, QString::number(items.size())},
            });
        m_home.write(u".wrenfold/history.json"_s, QJsonDocument(items).toJson());
        m_store.emplace();
        m_page.emplace(*m_store, m_callbacks, m_deletions, [this] { return m_now; });
        m_page->resize(712, 680);
        m_page->show();
        m_page->activateWindow();
        m_page->reloadHistory();
        ASSERT_TRUE(waitUntil([this] { return m_page->isActiveWindow(); }));
    }

    // What screen readers are told of the list: headings and rows.
    QStringList shown() const
    {
        QStringList names;
        for (auto *widget : m_page->findChildren<QWidget *>()) {
            auto *accessible = QAccessible::queryAccessibleInterface(widget);
            const auto role = accessible->role();
            if (widget->isVisible()
                && (role == QAccessible::Heading || role == QAccessible::ListItem))
                names.append(accessible->text(QAccessible::Name));
        }
        return names;
    }
    std::vector<HistoryRowView *> rows() const
    {
        std::vector<HistoryRowView *> rows;
        for (auto *widget : m_page->findChildren<QWidget *>())
            if (auto *row = dynamic_cast<HistoryRowView *>(widget); row && row->isVisible())
                rows.push_back(row);
        return rows;
    }
    QAbstractButton *button(size_t row, const QString &name) const
    {
        for (auto *target : rows().at(row)->focusTargets())
            if (target->accessibleName() == name && target->toolTip() == name)
                return qobject_cast<QAbstractButton *>(target);
        return nullptr;
    }
    const TemporaryHome m_home;
    QDateTime m_now = QDateTime::fromString(u"2026-03-02T03:00:00Z"_s, Qt::ISODate);
    QStringList m_pasted;
    QStringList m_copied;
    const MainWindowCallbacks m_callbacks{
        .onPasteHistory = [this](const QString &text) { m_pasted.append(text); },
        .onCopyHistory = [this](const QString &text) { m_copied.append(text); }};
    DeletionUndo m_deletions;
    std::optional<HistoryStore> m_store;
    std::optional<HistoryPage> m_page;
};

} // namespace

TEST_F(HistoryPageTest, HeadsTheItemsOfADayInLocalTime)
{
    const auto justNow = u"2026-03-02T00:00:00Z"_s;
    struct
    {
        QByteArray timeZone;
        QString now;
        QStringList moments;
        QString shown;
    } const cases[] = {
        {"Asia/Shanghai",
         justNow,
         {u"2026-03-01T16:01:00Z"_s, u"2026-03-01T15:59:00Z"_s},
         u"今天|00:01 0|昨天|23:59 1"_s},
        {"UTC",
         u"2026-01-01T10:00:00Z"_s,
         {u"2025-12-31T10:00:00Z"_s, u"2025-12-30T10:00:00Z"_s, u"2025-01-01T10:00:00Z"_s},
         u"昨天|10:00 0|2025年12月30日|10:00 1|2025年1月1日|10:00 2"_s},
        {"UTC",
         justNow,
         {u"2026-01-05T01:02:00Z"_s, u"2026-03-02T00:00:00Z"_s, u"2026-01-05T00:00:00Z"_s},
         u"1月5日|01:02 0|今天|00:00 1|1月5日|00:00 2"_s},
    };
    for (const auto &[timeZone, now, moments, expected] : cases) {
        setTimeZone(timeZone);
        m_now = QDateTime::fromString(now, Qt::ISODate);
        open(moments);
        EXPECT_EQ(shown().join(u'|'), expected);
    }
    m_now = m_now.addDays(1);
    setTimeZone("Asia/Shanghai");
    m_page->reloadHistory();
    EXPECT_EQ(shown().join(u'|'), u"1月5日|09:02 0|昨天|08:00 1|1月5日|08:00 2"_s);
}

TEST_F(HistoryPageTest, PastesAndCopiesTheItemOfTheRow)
{
    open({u"2026-03-02T02:00:00Z"_s, u"2026-03-02T01:00:00Z"_s});
    button(1, u"再次粘贴"_s)->click();
    EXPECT_EQ(m_pasted, QStringList{u"1"_s});
    button(0, u"复制转录"_s)->click();
    EXPECT_EQ(m_copied, QStringList{u"0"_s});
}

TEST_F(HistoryPageTest, KeepsTheKeyboardFocusInItsPlace)
{
    open(QStringList(3, u"2026-03-02T00:00:00Z"_s));
    button(1, u"删除转录"_s)->setFocus();
    m_store->add({}, u"new"_s);
    m_page->reloadHistory();
    EXPECT_EQ(QApplication::focusWidget(), button(2, u"删除转录"_s));
    for (const int row : {2, 1}) { // the one in its place, the last one
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        EXPECT_EQ(QApplication::focusWidget(), button(size_t(row), u"删除转录"_s));
    }
}

TEST_F(HistoryPageTest, KeepsWhatIsVisibleInItsPlaceAndTheRowUnderThePointerHovered)
{
    open(QStringList(40, u"2026-03-02T00:00:00Z"_s));
    auto *view = m_page->findChild<QScrollArea *>();
    const auto pointAt = [&](QEvent::Type type) {
        const QPointF point(50, 60);
        QHoverEvent event(type, point, point, point);
        QApplication::sendEvent(view->viewport(), &event);
    };
    const auto isHovered = [this](const QString &only) {
        return waitUntil([&] {
            return std::ranges::all_of(rows(), [&](const HistoryRowView *row) {
                const bool isIt = row->accessibleName().section(u' ', 1) == only;
                return row->actionOpacity() == (isIt ? 1 : 0);
            });
        });
    };
    const auto add = [this] {
        m_store->add({}, u"new"_s);
        m_page->reloadHistory();
    };
    QApplication::focusWidget()->clearFocus(); // its row is like a hovered one
    add();
    EXPECT_EQ(view->verticalScrollBar()->value(), 0);
    EXPECT_EQ(rows()[0]->width(), view->viewport()->width());
    pointAt(QEvent::HoverMove);
    EXPECT_TRUE(isHovered(u"new"_s));
    view->verticalScrollBar()->setValue(54 * 20);
    EXPECT_TRUE(isHovered(u"18"_s));
    add();
    EXPECT_EQ(view->verticalScrollBar()->value(), 54 * 21);
    EXPECT_TRUE(isHovered(u"18"_s));
    button(20, u"删除转录"_s)->click();
    EXPECT_EQ(view->verticalScrollBar()->value(), 54 * 21);
    EXPECT_TRUE(isHovered(u"19"_s));
    pointAt(QEvent::HoverLeave);
    EXPECT_TRUE(isHovered(QString()));
    m_page->hide();
    m_page->show();
    add();
    EXPECT_EQ(view->verticalScrollBar()->value(), 0);
}
