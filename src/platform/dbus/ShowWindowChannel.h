// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

// The only channel between two instances: a signal on the session bus by which a second launch asks
// the first to show its window. Main thread only.
class ShowWindowChannel final : public QObject
{
    Q_OBJECT
public:
    ShowWindowChannel() = default;
    ~ShowWindowChannel() override;

    // Sends the request and returns once the bus has it, so that the process may end. False when
    // there is no bus or it does not answer within a second.
    [[nodiscard]] bool post() const;

    // Calls the handler from the event loop for every request, until stop(). False without a bus.
    [[nodiscard]] bool observe(std::function<void()> handler);
    void stop();

private slots:
    void handleRequest();

private:
    std::function<void()> m_handler; // empty when not observing
};
