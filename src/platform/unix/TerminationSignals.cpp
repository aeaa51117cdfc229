// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TerminationSignals.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

namespace {

constexpr std::array handledSignals{SIGTERM, SIGINT, SIGHUP};

// The one thing a signal handler can reach: where it reports; -1 when nobody listens.
std::atomic<int> reportDescriptor = -1;
std::atomic<bool> hasReport = false;
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

void reportSignal(int)
{
    const int savedError = errno;
    hasReport = true;
    const quint64 one = 1;
    // A full counter means that a report is waiting already.
    [[maybe_unused]] const auto written = write(reportDescriptor.load(), &one, sizeof one);
    errno = savedError;
}

void setHandler(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

bool isIgnored(int signal)
{
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

// Whoever started us may have left the signals blocked.
void unblockSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : handledSignals)
        sigaddset(&set, signal);
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> handler)
    : m_handler(std::move(handler))
    , m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    , m_notifier(std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read))
{
    Q_ASSERT(reportDescriptor.load() == -1);
    reportDescriptor = m_descriptor;
    hasReport = false;
    QObject::connect(
        m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { handleOnce(); });
    for (const int signal : handledSignals)
        if (signal != SIGHUP || !isIgnored(SIGHUP))
            setHandler(signal, reportSignal);
    unblockSignals();
}

TerminationSignals::~TerminationSignals()
{
    for (const int signal : handledSignals)
        setHandler(signal, SIG_IGN);
    reportDescriptor = -1;
    m_notifier.reset();
    close(m_descriptor);
}

bool TerminationSignals::hasArrived()
{
    return hasReport;
}

void TerminationSignals::handleOnce()
{
    m_notifier->setEnabled(false);
    if (const auto handler = std::exchange(m_handler, {}))
        handler();
}
