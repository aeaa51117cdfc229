// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MainQueue.h"

#include <QObject>

#include <deque>
#include <mutex>

// The main queue on Qt's event loop. Create it on the main thread.
class EventLoopMainQueue final : public QObject, public MainQueue
{
    Q_OBJECT
public:
    EventLoopMainQueue();
    ~EventLoopMainQueue() override;

    void post(Work work) override;
    void postAfter(std::chrono::milliseconds delay, Work work) override;
    std::unique_ptr<RepeatingTimer> repeatEvery(std::chrono::milliseconds interval,
                                                Work work) override;
    void close() override;
    [[nodiscard]] bool isClosed() const override;

protected:
    bool event(QEvent *event) override;

private:
    bool enqueue(Entry entry) override;
    void runOne();

    mutable std::mutex m_mutex;
    std::deque<Entry> m_entries;
    bool m_isClosed = false;
};
