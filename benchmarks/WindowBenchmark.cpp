// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WindowBenchmark.h"

#include "BareWindow.h"
#include "Clock.h"
#include "DictionaryChipCloudView.h"
#include "EventLoopMainQueue.h"
#include "HeldWindow.h"
#include "HistoryPage.h"
#include "HistoryStore.h"
#include "MainWindowController.h"
#include "PageWindow.h"
#include "PasteEnabledTextView.h"
#include "VirtualMainQueue.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QListView>
#include <QStackedLayout>
#include <QStringListModel>
#include <QTemporaryDir>
#include <QUuid>

#include <functional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 15;

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

// Milliseconds until what the action shows is on the screen.
double untilDrawn(const std::function<QWidget &()> &action)
{
    const auto start = Clock::now();
    auto &window = action();
    waitUntilExposed(window);
    drawFrame(window);
    return milliseconds(start, Clock::now());
}

// Milliseconds of switching to each page in turn, the first one last.
std::vector<double> switching(QWidget &window, const std::function<void(int)> &switchTo)
{
    std::vector<double> times;
    for (const int page : {1, 2, 3, 0}) {
        QApplication::processEvents();
        const auto start = Clock::now();
        switchTo(page);
        drawFrame(window);
        times.push_back(milliseconds(start, Clock::now()));
    }
    return times;
}

// Milliseconds a key, typed at the beginning of a text of 100 KB.
double typing(QPlainTextEdit &view)
{
    constexpr int keys = 30;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s);
    PageWindow window(&view);
    window.open([&view] {
        view.setPlainText(u"把语音识别文本整理成可以直接发出去的聊天文字。\n"_s.repeated(1'500));
    });
    const auto type = [&] { QApplication::sendEvent(&view, &key); };
    double total = 0;
    for (int i = 0; i < keys; ++i)
        total += window.change(type);
    return total / keys;
}

} // namespace

WindowBenchmark::WindowBenchmark(Results &results)
    : m_results(results)
{}

void WindowBenchmark::measureHistory()
{
    Measurement opened{.name = "History: open 200 x 10 KB",
                       .unit = "ms",
                       .peer = "bare QListView",
                       .goal = Measurement::Goal{.limit = 100, .isRatio = false}};
    Measurement scrolled{.name = "History: scroll frame",
                         .unit = "ms",
                         .peer = "bare QListView",
                         .goal = Measurement::Goal{.limit = 1.0}};
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    writeHistory(home.path());
    HistoryStore store;
    QStringList texts;
    for (const auto &item : store.items())
        texts.append(item.polished);
    const MainWindowCallbacks callbacks;
    DeletionUndo deletions;
    for (int run = 0; run < runs; ++run) {
        auto *page = new HistoryPage(store, callbacks, deletions);
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

void WindowBenchmark::measureDictionary()
{
    Measurement reflow{.name = "Dictionary: reflow of 300 chips",
                       .unit = "ms",
                       .goal = Measurement::Goal{.limit = 1000.0 / 60, .isRatio = false}};
    QStringList terms;
    for (int i = 0; i < 300; ++i)
        terms << (i % 2 == 0 ? u"热词 %1"_s : u"term number %1"_s).arg(i * i * i);
    auto *cloud = new DictionaryChipCloudView([](const QString &) {});
    PageWindow window(cloud);
    window.open([&] { cloud->setTerms(terms); });
    for (int run = 0; run < runs; ++run) {
        const int width = run % 2 == 0 ? 500 : 680;
        reflow.values.push_back(
            window.change([&] { cloud->resize(width, cloud->measuredHeight(width)); }));
    }
    m_results.add(reflow);
}

void WindowBenchmark::measurePrompt()
{
    Measurement key{.name = "Prompt: a key in 100 KB",
                    .unit = "ms",
                    .peer = "bare QPlainTextEdit",
                    .goal = Measurement::Goal{.limit = 1.1}};
    for (int run = 0; run < runs; ++run) {
        key.values.push_back(typing(*new PasteEnabledTextView));
        key.peerValues.push_back(typing(*new QPlainTextEdit));
    }
    m_results.add(key);
}

void WindowBenchmark::measureReopening()
{
    Measurement reopened{.name = "Window: open again a minute after it was closed",
                         .unit = "ms",
                         .goal = Measurement::Goal{.limit = 50, .isRatio = false}};
    VirtualMainQueue queue;
    HistoryStore store;
    MainWindowController controller(queue, store, {}, {});
    const auto show = [&]() -> QWidget & {
        controller.show({}, MainWindowPage::GettingStarted);
        return mainWindow();
    };
    for (int run = 0; run <= runs; ++run) {
        const auto time = untilDrawn(show);
        if (run > 0)
            reopened.values.push_back(time);
        mainWindow().close();
        queue.advance(std::chrono::minutes(1));
        QApplication::processEvents();
    }
    m_results.add(reopened);
}

void WindowBenchmark::measureWindow()
{
    const auto row = [](const char *name, double limit) {
        return Measurement{.name = name,
                           .unit = "ms",
                           .peer = "bare window",
                           .goal = Measurement::Goal{.limit = limit, .isRatio = false}};
    };
    auto built = row("Window: first build", 150);
    auto shown = row("Window: show again", 50);
    auto switched = row("Window: page switch", 30);
    EventLoopMainQueue queue;
    HistoryStore store;
    const AppConfig config;
    for (int run = 0; run < runs; ++run) {
        MainWindowController controller(queue, store, {}, {});
        const auto show = [&]() -> QWidget & {
            controller.show(config, MainWindowPage::GettingStarted);
            return mainWindow();
        };
        built.values.push_back(untilDrawn(show));
        auto &window = mainWindow();
        const auto counts = widgetsOfPages(window);
        QList<QAbstractButton *> items;
        for (auto *button : window.findChildren<QAbstractButton *>())
            if (button->isCheckable())
                items << button;
        for (const double time : switching(window, [&](int page) { items.at(page)->click(); }))
            switched.values.push_back(time);
        window.hide();
        QApplication::processEvents();
        shown.values.push_back(untilDrawn(show));
        window.hide();

        std::unique_ptr<BareWindow> bare;
        const auto showBare = [&]() -> QWidget & {
            if (!bare)
                bare = std::make_unique<BareWindow>(counts);
            bare->show();
            return *bare;
        };
        built.peerValues.push_back(untilDrawn(showBare));
        for (const double time : switching(*bare, [&](int page) { bare->setCurrentPage(page); }))
            switched.peerValues.push_back(time);
        bare->hide();
        QApplication::processEvents();
        shown.peerValues.push_back(untilDrawn(showBare));
    }
    for (const auto *each : {&built, &shown, &switched})
        m_results.add(*each);
    measureReopening();
}
