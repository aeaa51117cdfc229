// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WrenfoldApplication.h"

#include "Desktop.h"
#include "WaitUntil.h"

#include <QDir>
#include <QFile>

#include <csignal>

using namespace Qt::StringLiterals;

WrenfoldApplication::WrenfoldApplication(const QStringList &environment)
{
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_process.start(u"env"_s, environment + QStringList{QStringLiteral(WRENFOLD_EXECUTABLE)});
    m_process.waitForStarted();
}

WrenfoldApplication::~WrenfoldApplication()
{
    if (isRunning() && end(SIGTERM) == -1)
        m_process.kill();
    m_process.waitForFinished();
}

QStringList WrenfoldApplication::log()
{
    QFile file(QDir::home().filePath(u".wrenfold/logs/wrenfold.log"_s));
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
