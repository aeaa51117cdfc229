// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpRequest.h"
#include "HttpResponse.h"

#include <memory>
#include <mutex>
#include <thread>

// The process's HTTP: HTTP/1.1 with connections kept open for a while, certificates verified
// against the system's authorities, the system's proxy, no cookies, no cache, no redirects
// followed, and every request sent exactly once. Every operation may be called from any thread.
class HttpSession final
{
public:
    // What the network needs is loaded on the session's own thread, when it is needed.
    HttpSession();
    ~HttpSession();
    HttpSession(const HttpSession &) = delete;
    HttpSession &operator=(const HttpSession &) = delete;

    // Sends the request and waits for the whole answer; an error status is an answer too. Throws
    // HttpError, and what opening or reading the body throws.
    [[nodiscard]] HttpResponse send(const HttpRequest &request);
    // Opens a connection for a request that will follow, unless one was opened or used within the
    // last seconds; returns at once. A failure shows when the request is made, an address that is
    // not HTTP is ignored.
    void openAhead(const HttpAddress &address);
    // Refuses new requests, fails those in flight as cancelled and ends the thread.
    void close();

private:
    class Engine;

    std::unique_ptr<Engine> m_engine;
    std::mutex m_joinMutex;
    std::thread m_thread; // a standard one: the race detector sees it start and end
};
