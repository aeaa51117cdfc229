// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WrenfoldApplication.h"

#include "AppLogger.h"
#include "Desktop.h"
#include "Process.h"
#include "WaitUntil.h"

#include <QFile>

#include <csignal>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

QString WrenfoldApplication::executable()
{
    return qEnvironmentVariable("WRENFOLD_UNDER_TEST", QStringLiteral(WRENFOLD_EXECUTABLE));
}

WrenfoldApplication::WrenfoldApplication(const QStringList &environment,
                                         const QStringList &arguments)
{
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    bindToThisProcess(m_process);
    m_process.start(u"env"_s, environment + QStringList{executable()} + arguments);
    m_process.waitForStarted();
}

WrenfoldApplication::~WrenfoldApplication()
{
    if (isRunning() && end(SIGTERM) == -1)
        m_process.kill();
    m_process.waitForFinished();
}

std::unique_ptr<WrenfoldApplication> WrenfoldApplication::launch(const QStringList &environment)
{
    QFile::remove(AppLogger::logFileURL().toLocalFile());
    auto application = std::make_unique<WrenfoldApplication>(environment);
    EXPECT_TRUE(waitForLog(u"Launch finished."_s));
    return application;
}

QStringList WrenfoldApplication::log()
{
    QFile file(AppLogger::logFileURL().toLocalFile());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

bool WrenfoldApplication::waitForLog(const QString &text,
                                     qsizetype times,
                                     std::chrono::milliseconds limit)
{
    return waitUntil([&] { return log().filter(text).size() >= times; }, limit);
}

bool WrenfoldApplication::tapUntilLogged(Desktop &desktop,
                                         const std::vector<quint8> &keys,
                                         const QString &text,
                                         qsizetype times)
{
    return waitUntil([&] {
        desktop.tap(keys);
        return waitForLog(text, times, std::chrono::seconds(3));
    });
}

int WrenfoldApplication::waitForExit(std::chrono::milliseconds limit)
{
    const bool hasEnded = waitUntil([this] { return !isRunning(); }, limit);
    return hasEnded && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

int WrenfoldApplication::end(int signal)
{
    ::kill(static_cast<pid_t>(processId()), signal);
    return waitForExit();
}
