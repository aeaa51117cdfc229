// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clock.h"

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

// Both services on a port of this machine, answering at once: they show what the application itself
// costs. Every request but those for "/chat/completions" counts as recognition.
class InstantServices final
{
public:
    // Listens at once. Throws std::system_error.
    InstantServices();
    ~InstantServices();
    InstantServices(const InstantServices &) = delete;
    InstantServices &operator=(const InstantServices &) = delete;

    [[nodiscard]] int port() const { return m_port; }
    // Whether recognition is answered; without, its requests stay open. True at first.
    void setAnswering(bool isAnswering);
    // Keeps the body of the latest recognition request from now on.
    void keepBodies();
    [[nodiscard]] std::string latestBody();

    // What happened to the latest recognition request.
    struct Times
    {
        Instant lastByte; // its last byte had arrived
        Instant answered; // its answer was handed to the system
    };
    // Waits for the next recognition request not yet waited for; its `answered` is only set when
    // it was answered. Throws std::runtime_error when none comes within 30 s.
    Times waitForRequest();

    // What polishing answers.
    static constexpr const char *polishedText = "Please move the meeting to Thursday.";

private:
    void acceptAll();
    void serve(int connection);
    void recognise(int connection, std::string body);

    int m_listener = -1;
    int m_port = 0;
    std::mutex m_mutex;
    std::condition_variable m_requestCame;
    bool m_isAnswering = true;
    bool m_keepsBodies = false;
    std::string m_body;
    Times m_times;
    int m_unclaimedRequests = 0;
    std::vector<int> m_connections;
    std::vector<std::thread> m_workers;
    std::thread m_acceptor;
};
