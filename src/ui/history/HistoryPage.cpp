// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HistoryPage.h"

#include "DeletionUndo.h"
#include "HistoryDateHeaderView.h"
#include "HistoryListView.h"
#include "HistoryRowView.h"
#include "HistoryStackView.h"
#include "HistoryStore.h"
#include "MainWindowCallbacks.h"
#include "TextLabel.h"
#include "ViewBuilders.h"

#include <QLocale>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString formatted(const QDateTime &date, const QString &format)
{
    return QLocale(QLocale::Chinese, QLocale::China).toString(date.toLocalTime(), format);
}

} // namespace

HistoryPage::HistoryPage(HistoryStore &store,
                         const MainWindowCallbacks &callbacks,
                         DeletionUndo &deletions,
                         std::function<QDateTime()> clock)
    : m_store(store)
    , m_callbacks(callbacks)
    , m_deletions(deletions)
    , m_clock(std::move(clock))
    , m_list(new HistoryListView)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(32, 28, 32, 28);
    layout->setSpacing(18);
    layout->addWidget(ViewBuilders::makeTitleBlock(
        u"剪贴板"_s, u"查看最近的转录结果，支持复制、删除和再次粘贴。"_s));
    layout->addWidget(m_list, 1);
}

void HistoryPage::reloadHistory()
{
    auto *stack = new HistoryStackView;
    QDate previousDay;
    for (const auto &item : m_store.items()) {
        const auto day = item.createdAt.toLocalTime().date();
        if (day != previousDay)
            stack->append(new HistoryDateHeaderView(dateHeaderText(item.createdAt)));
        previousDay = day;
        stack->appendRow(item.id, makeRow(item));
    }
    if (stack->rows().empty())
        stack->append(
            ViewBuilders::makeBodyLabel(u"还没有转录。录音完成后，结果会自动出现在这里。"_s));
    m_list->setStack(stack);
}

QString HistoryPage::dateHeaderText(const QDateTime &date) const
{
    const auto day = date.toLocalTime().date();
    const auto today = m_clock().toLocalTime().date();
    if (day == today)
        return u"今天"_s;
    if (day == today.addDays(-1))
        return u"昨天"_s;
    return formatted(date, day.year() == today.year() ? u"M月d日"_s : u"yyyy年M月d日"_s);
}

HistoryRowView *HistoryPage::makeRow(const HistoryItem &item)
{
    const auto remove = [this, id = item.id] { this->remove(id); };
    const auto paste = [this, text = item.polished] { m_callbacks.onPasteHistory(text); };
    const auto copy = [this, text = item.polished] { m_callbacks.onCopyHistory(text); };
    return new HistoryRowView(
        formatted(item.createdAt, u"HH:mm"_s), item.polished, paste, copy, remove);
}

void HistoryPage::remove(const QUuid &id)
{
    const auto &items = m_store.items();
    const auto item = std::ranges::find(items, id, &HistoryItem::id);
    if (item != items.end())
        m_deletions.add([this, former = *item, position = item - items.begin()] {
            m_store.restore(former, position);
            reloadHistory();
        });
    m_store.remove(id);
    reloadHistory();
}
