// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Process.h"

#include "WaitUntil.h"

#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <spawn.h>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

// By posix_spawn: QProcess shares its memory with the child until exec, and over that the race
// detector loses the locks that its parent holds.
ProcessResult runCommand(const QString &command, std::chrono::milliseconds limit)
{
    const QTemporaryDir folder;
    const auto line = u"exec </dev/null >%1/output 2>%1/errors\n%2"_s.arg(folder.path(), command);
    QByteArrayList words{"sh", "-c", line.toUtf8()};
    char *const arguments[] = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    pid_t shell = 0;
    if (::posix_spawn(&shell, "/bin/sh", nullptr, nullptr, arguments, environ) != 0)
        qFatal("the shell cannot be started");
    int status = 0;
    if (!waitUntil([&] { return ::waitpid(shell, &status, WNOHANG) == shell; }, limit)) {
        ::kill(shell, SIGKILL);
        ::waitpid(shell, &status, 0);
    }
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
            contentOf(folder.filePath(u"output"_s)),
            contentOf(folder.filePath(u"errors"_s))};
}

void bindToThisProcess(QProcess &program)
{
    program.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

BackgroundProcess::~BackgroundProcess()
{
    kill();
    waitForFinished();
}
