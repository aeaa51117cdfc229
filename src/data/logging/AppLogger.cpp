// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppLogger.h"

#include "AppRuntime.h"
#include "LocalizedError.h"
#include "LogFile.h"
#include "SerialQueue.h"
#include "SystemLog.h"

#include <QDesktopServices>

#include <cstdlib>
#include <ctime>
#include <cxxabi.h>
#include <memory>
#include <typeinfo>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// A disk that does not answer within this time holds nobody up any longer.
constexpr auto drainLimit = std::chrono::seconds(2);

// Never destroyed, since others may log while the process takes itself apart: at exit the thread
// ends, and later lines are written by whoever logs them.
SerialQueue &logQueue()
{
    static SerialQueue *const queue = [] {
        auto created = std::make_unique<SerialQueue>("local.wrenfold.logger");
        std::atexit([] { logQueue().stop(drainLimit); });
        return created.release();
    }();
    return *queue;
}

// ISO 8601 with milliseconds. Not by QDateTime, whose calendars are gone when a process that exits
// writes its last lines.
QString currentTime()
{
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    tm parts = {};
    ::gmtime_r(&now.tv_sec, &parts);
    char seconds[24] = {};
    std::strftime(seconds, sizeof seconds, "%Y-%m-%dT%H:%M:%S", &parts);
    const auto milliseconds = QString::number(now.tv_nsec / 1'000'000).rightJustified(3, u'0');
    return QLatin1StringView(seconds) + u'.' + milliseconds + u'Z';
}

void writeNow(QLatin1StringView level, const QString &message)
{
    const QString line = currentTime() + u" ["_s + level + u"] [pid="_s
        + QString::number(::getpid()) + u"] "_s + message + u'\n';
    try {
        LogFile::append(line.toUtf8());
    } catch (const LocalizedError &error) {
        SystemLog::report(u"log write failed: "_s + error.localizedDescription());
    }
}

void write(QLatin1StringView level, const QString &message)
{
    logQueue().submit([level, message] { writeNow(level, message); });
}

QString currentExceptionTypeName()
{
    const auto *type = abi::__cxa_current_exception_type();
    if (type == nullptr)
        return u"none"_s;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(type->name(), nullptr, nullptr, nullptr), &std::free);
    return QString::fromUtf8(name ? name.get() : type->name());
}

QString currentExceptionReason()
{
    QString reason;
    try {
        if (const auto exception = std::current_exception())
            std::rethrow_exception(exception);
    } catch (const std::exception &error) {
        reason = QString::fromUtf8(error.what());
    } catch (...) {
        // Not a std::exception: it has no reason to tell.
    }
    return reason.isEmpty() ? u"no reason"_s : reason;
}

void logUncaughtException()
{
    const QString message = u"Uncaught exception: "_s + currentExceptionTypeName() + u" reason="_s
        + currentExceptionReason();
    if (logQueue().isCurrentThread())
        writeNow("ERROR"_L1, message);
    else
        AppLogger::error(message);
    AppLogger::drain();
}

std::terminate_handler &previousTerminateHandler()
{
    static std::terminate_handler handler = nullptr;
    return handler;
}

[[noreturn]] void handleTerminate()
{
    // A failure within the handler comes back here and must not try again.
    thread_local bool isHandling = false;
    if (!std::exchange(isHandling, true))
        logUncaughtException();
    if (const auto previous = previousTerminateHandler())
        previous();
    std::abort();
}

} // namespace

void AppLogger::info(const QString &message)
{
    write("INFO"_L1, message);
}

void AppLogger::warning(const QString &message)
{
    write("WARN"_L1, message);
}

void AppLogger::error(const QString &message, const std::exception_ptr &error)
{
    write("ERROR"_L1, error ? message + u" error="_s + localizedDescription(error) : message);
}

void AppLogger::drain()
{
    if (!logQueue().drain(drainLimit))
        SystemLog::report(u"log not written: the disk does not answer."_s);
}

void AppLogger::installCrashLogging()
{
    if (std::get_terminate() != handleTerminate)
        previousTerminateHandler() = std::set_terminate(handleTerminate);
}

void AppLogger::openLogFolder()
{
    info(u"Open log folder requested."_s);
    try {
        LogFile::prepare();
    } catch (const LocalizedError &) {
        error(u"Failed to prepare log folder."_s, std::current_exception());
        return;
    }
    QDesktopServices::openUrl(logDirectoryURL());
}

QUrl AppLogger::logDirectoryURL()
{
    return QUrl::fromLocalFile(LogFile::directoryPath());
}

QUrl AppLogger::logFileURL()
{
    return QUrl::fromLocalFile(LogFile::path());
}

QString AppLogger::logPathDisplay()
{
    return u"~/"_s + AppRuntime::configDirectoryName + u"/logs/wrenfold.log"_s;
}
