// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

// The only channel between two instances: a signal on the session bus by which a second launch asks
// the first to show its window, and one by which the first says that it has. Main thread only.
class ShowWindowChannel final : public QObject
{
    Q_OBJECT
public:
    ShowWindowChannel() = default;
    ~ShowWindowChannel() override;

    // Sends the request and returns once the bus has it. False when there is no bus or it does not
    // answer within a second. `answered` is called from the event loop when an instance has taken
    // the request; one that is on its way out answers nobody.
    [[nodiscard]] bool post(std::function<void()> answered);

    // Calls the handler from the event loop for every request, until stop(), and answers it; own
    // requests are forgotten. False without a bus.
    [[nodiscard]] bool observe(std::function<void()> handler);
    void stop();

private slots:
    void handleRequest();
    void handleAnswer();

private:
    std::function<void()> m_handler; // empty when not observing
    std::function<void()> m_answered; // empty when nothing was asked
};
