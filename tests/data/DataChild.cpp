// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfig.h"
#include "AppLogger.h"
#include "HistoryStore.h"
#include "SingleInstanceGuard.h"

#include <cstdio>
#include <stdexcept>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// A process that tests can kill, crash and start many of: the first argument says what it does.
namespace {

void say(const char *line)
{
    std::puts(line);
    std::fflush(stdout);
}

// Replaces each file again and again until it is killed.
[[noreturn]] void saveForEver()
{
    HistoryStore history;
    AppConfig config;
    for (bool isFirst = true;; isFirst = !isFirst) {
        config.polishPrompt = QString(100'000, isFirst ? u'a' : u'b');
        AppConfig::save(config);
        history.add(QString(1'000, u'语'), u"polished"_s);
        AppLogger::info(QString(5'000, u'x'));
        say("saved");
    }
}

// On two threads at once.
void log(const QString &process, int count)
{
    const auto logFrom = [&](const QString &thread) {
        for (int i = 0; i < count; ++i)
            AppLogger::info(u"%1%2 %3 %4"_s.arg(process, thread).arg(i).arg(QString(100, u'.')));
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

void lock()
{
    SingleInstanceGuard guard(u"test"_s);
    say(guard.acquire() ? "true" : "false");
    while (std::getchar() != EOF) {}
}

// Logs while statics are destroyed, in a forked child too.
void logAtExit()
{
    struct Late
    {
        ~Late() { AppLogger::info(u"late"_s); }
    };
    static const Late late;
    AppLogger::info(u"parent"_s);
    AppLogger::drain();
    const auto child = ::fork();
    if (child == 0) {
        AppLogger::info(u"child"_s);
        std::exit(0);
    }
    ::waitpid(child, nullptr, 0);
}

} // namespace

int main(int argc, char **argv)
{
    const QList<QByteArray> arguments(argv + 1, argv + argc);
    const auto action = arguments.value(0);
    if (action == "save")
        saveForEver();
    else if (action == "log")
        log(QString::fromUtf8(arguments.value(1)), arguments.value(2).toInt());
    else if (action == "crash")
        crash(arguments.value(1));
    else if (action == "lock")
        lock();
    else if (action == "exit")
        logAtExit();
    else
        return 2;
    return 0;
}
