// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfig.h"
#include "AppLogger.h"
#include "HistoryStore.h"

#include <QRandomGenerator>
#include <QScopeGuard>

#include <chrono>
#include <csignal>
#include <functional>
#include <map>
#include <stdexcept>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// A process that tests can kill, crash and start many of: the first argument says what it does.
namespace {

// Replaces each file again and again until it is killed, at any moment after the first time.
[[noreturn]] void saveUntilKilled()
{
    HistoryStore history;
    AppConfig config;
    for (int round = 0;; ++round) {
        config.polishPrompt = QString(100'000, round % 2 == 0 ? u'a' : u'b');
        AppConfig::save(config);
        history.add(QString(1'000, u'语'), u"polished"_s);
        history.drain();
        AppLogger::info(QString(5'000, u'x'));
        if (round == 0)
            std::thread([] {
                const auto moment = QRandomGenerator::global()->bounded(12'000);
                std::this_thread::sleep_for(std::chrono::microseconds(moment));
                ::kill(::getpid(), SIGKILL);
            }).detach();
    }
}

// On two threads at once.
void log(const QByteArray &process)
{
    const auto logFrom = [&process](const QString &thread) {
        for (int i = 0; i < 150; ++i)
            AppLogger::info(u"%1%2 %3 %4"_s.arg(QString::fromUtf8(process), thread)
                                .arg(i)
                                .arg(QString(100, u'.')));
    };
    std::thread other(logFrom, u"other"_s);
    logFrom(u"main"_s);
    other.join();
}

void crash(const QByteArray &kind)
{
    AppLogger::installCrashLogging();
    AppLogger::installCrashLogging();
    AppLogger::info(u"before"_s);
    if (kind == "number")
        throw 7;
    if (kind == "thread")
        std::thread([] { throw std::out_of_range("range"); }).join();
    if (kind == "terminate")
        std::terminate();
    throw std::runtime_error("boom");
}

// Logs while statics are destroyed, in a forked child too.
void logAtExit()
{
    static const auto late = qScopeGuard([] { AppLogger::info(u"late"_s); });
    AppLogger::info(u"parent"_s);
    AppLogger::drain();
    if (::fork() == 0)
        AppLogger::info(u"child"_s);
    else
        ::wait(nullptr);
}

} // namespace

int main(int argc, char **argv)
{
    const QList<QByteArray> arguments(argv + 1, argv + argc);
    const std::map<QByteArray, std::function<void()>> actions{
        {"save", saveUntilKilled},
        {"log", [&] { log(arguments.at(1)); }},
        {"crash", [&] { crash(arguments.at(1)); }},
        {"exit", logAtExit},
    };
    actions.at(arguments.at(0))();
    return 0;
}
