// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WindowBenchmark.h"

#include "Clock.h"
#include "HistoryPage.h"
#include "HistoryStore.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QListView>
#include <QScrollBar>
#include <QStringListModel>
#include <QTemporaryDir>
#include <QUuid>

#include <functional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 15;
constexpr QSize pageSize(712, 680);

// Draws what is due, as when the window system asks for it.
void drawFrame(QWidget &window)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&window, &request);
}

// A window on the screen, for one page.
class PageWindow final : public QWidget
{
public:
    // Takes the page over.
    explicit PageWindow(QWidget *page)
        : m_page(page)
    {
        page->hide();
        page->setParent(this);
        page->resize(pageSize);
        resize(pageSize);
        show();
        QCoreApplication::processEvents();
    }

    // Milliseconds to fill the page and to have it on the screen.
    double open(const std::function<void()> &fill)
    {
        const auto start = Clock::now();
        fill();
        m_page->show();
        drawFrame(*this);
        return milliseconds(start, Clock::now());
    }

    // Milliseconds a frame, scrolled from the top in the steps of a mouse wheel.
    double scroll(const QAbstractScrollArea &view)
    {
        constexpr int frames = 50;
        constexpr int step = 60;
        auto *bar = view.verticalScrollBar();
        if (bar->maximum() < frames * step)
            throw std::runtime_error("too little to scroll");
        QCoreApplication::processEvents();
        const auto start = Clock::now();
        for (int frame = 1; frame <= frames; ++frame) {
            bar->setValue(frame * step);
            drawFrame(*this);
        }
        return milliseconds(start, Clock::now()) / frames;
    }

private:
    QWidget *m_page;
};

// A text of 10 KB in UTF-8.
QString longText(int number)
{
    const auto sentence = number % 2 == 0
        ? u"第%1条：今天下午三点我们讨论了新版本的发布计划，会议记录稍后发给大家。"_s
        : u"Number %1: please send the notes of this afternoon's meeting to everyone. "_s;
    constexpr int size = 10'000;
    QString text;
    for (qsizetype bytes = 0; bytes < size; bytes += sentence.toUtf8().size())
        text += sentence.arg(number);
    return text;
}

// 200 texts, five a day.
void writeHistory(const QString &home)
{
    QJsonArray items;
    for (int number = 0; number < 200; ++number)
        items.append(QJsonObject{
            {u"id"_s, QUuid::createUuid().toString(QUuid::WithoutBraces)},
            {u"createdAt"_s, 800'000'000 - number * 17'280},
            {u"transcript"_s, QString()},
            {u"polished"_s, longText(number)},
        });
    QDir(home).mkdir(u".wrenfold"_s);
    QFile file(home + u"/.wrenfold/history.json"_s);
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("no history can be written");
    file.write(QJsonDocument(items).toJson());
}

} // namespace

WindowBenchmark::WindowBenchmark(Results &results)
    : m_results(results)
{}

void WindowBenchmark::measureHistory()
{
    Measurement opened{.name = "History: open 200 x 10 KB",
                       .unit = "ms",
                       .values = {},
                       .peer = "bare QListView",
                       .goal = Measurement::Goal{.limit = 100, .isRatio = false}};
    Measurement scrolled{.name = "History: scroll frame",
                         .unit = "ms",
                         .values = {},
                         .peer = "bare QListView",
                         .goal = Measurement::Goal{.limit = 1.0}};
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    writeHistory(home.path());
    HistoryStore store;
    QStringList texts;
    for (const auto &item : store.items())
        texts.append(item.polished);
    for (int run = 0; run < runs; ++run) {
        auto *page = new HistoryPage(store);
        PageWindow window(page);
        opened.values.push_back(window.open([&] { page->reloadHistory(); }));
        scrolled.values.push_back(window.scroll(*page->findChild<QAbstractScrollArea *>()));

        auto *list = new QListView;
        list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        QStringListModel model;
        PageWindow peerWindow(list);
        opened.peerValues.push_back(peerWindow.open([&] {
            model.setStringList(texts);
            list->setModel(&model);
        }));
        scrolled.peerValues.push_back(peerWindow.scroll(*list));
    }
    m_results.add(opened);
    m_results.add(scrolled);
}
