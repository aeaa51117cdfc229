// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

// Turns SIGTERM, SIGINT and SIGHUP into one call on the main thread. Create one, once, on the main
// thread; child processes keep the default handling.
class TerminationSignals final
{
public:
    // Calls the handler from the event loop for the first signal; later ones do nothing. A hang-up
    // that was being ignored (nohup) stays so.
    explicit TerminationSignals(std::function<void()> handler);
    // Signals are ignored from here on: the process is on its way out.
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals &) = delete;
    TerminationSignals &operator=(const TerminationSignals &) = delete;

    // Whether one has arrived, which the event loop may not have come to yet. From any thread.
    [[nodiscard]] static bool hasArrived();

private:
    void handleOnce();

    std::function<void()> m_handler;
    int m_descriptor = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
