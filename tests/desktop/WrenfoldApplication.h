// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>
#include <vector>

class Desktop;

// Wrenfold itself, started as its user would, with the files it keeps in the private home.
class WrenfoldApplication final
{
public:
    // The program that was built, or the one that WRENFOLD_UNDER_TEST names.
    [[nodiscard]] static QString executable();

    // Starts the program; with `environment`, lines of NAME=value that are set besides.
    explicit WrenfoldApplication(const QStringList &environment = {},
                                 const QStringList &arguments = {});
    ~WrenfoldApplication();
    // The same, with an empty log; returns when it is up.
    [[nodiscard]] static std::unique_ptr<WrenfoldApplication>
    launch(const QStringList &environment = {});

    // Every line of the log so far, of all launches.
    [[nodiscard]] static QStringList log();
    // Waits until the log has a line that contains the text, `times` times.
    [[nodiscard]] static bool
    waitForLog(const QString &text,
               qsizetype times = 1,
               std::chrono::milliseconds limit = std::chrono::seconds(10));
    // Taps the keys until the log has said this so many times: its lines can be some milliseconds
    // ahead of what they announce, and a key that comes before it is rightly ignored.
    [[nodiscard]] static bool tapUntilLogged(Desktop &desktop,
                                             const std::vector<quint8> &keys,
                                             const QString &text,
                                             qsizetype times = 1);

    [[nodiscard]] qint64 processId() const { return m_process.processId(); }
    [[nodiscard]] bool isRunning() const { return m_process.state() == QProcess::Running; }
    // Waits for the end; returns the exit status, -1 when it crashed or does not end.
    [[nodiscard]] int waitForExit(std::chrono::milliseconds limit = std::chrono::seconds(10));
    // Sends a signal and waits for the end.
    [[nodiscard]] int end(int signal);

private:
    QProcess m_process;
};
