// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "InstantServices.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <optional>
#include <stdexcept>

#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace {

struct Request
{
    bool isPolishing = false;
    std::string body; // empty unless it is to be kept
};

// Reads one request from a connection at a time.
class RequestReader
{
public:
    explicit RequestReader(int connection)
        : m_connection(connection)
    {}

    // Empty when the other side has closed.
    std::optional<Request> next(bool keepsBody)
    {
        std::string head;
        auto end = std::string::npos;
        while ((end = head.find("\r\n\r\n")) == std::string::npos) {
            const auto count = receive();
            if (count <= 0)
                return std::nullopt;
            head.append(m_buffer.data(), static_cast<std::size_t>(count));
        }
        Request request;
        request.isPolishing = head.find("/chat/completions") < head.find('\n');
        if (keepsBody)
            request.body = head.substr(end + 4);
        auto left = contentLength(head.substr(0, end)) - static_cast<long>(head.size() - end - 4);
        while (left > 0) {
            const auto count = receive();
            if (count <= 0)
                return std::nullopt;
            left -= count;
            if (keepsBody)
                request.body.append(m_buffer.data(), static_cast<std::size_t>(count));
        }
        return request;
    }

private:
    long receive() { return recv(m_connection, m_buffer.data(), m_buffer.size(), 0); }

    static long contentLength(std::string head)
    {
        std::ranges::transform(head, head.begin(), [](unsigned char c) { return std::tolower(c); });
        const auto at = head.find("content-length:");
        return at == std::string::npos ? 0 : std::strtol(head.c_str() + at + 15, nullptr, 10);
    }

    int m_connection;
    std::array<char, 65536> m_buffer{};
};

void answer(int connection, const std::string &json)
{
    const auto text = "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: "
        + std::to_string(json.size()) + "\r\n\r\n" + json;
    if (send(connection, text.data(), text.size(), MSG_NOSIGNAL) < 0)
        return; // the client has gone; the next read says so
}

} // namespace

InstantServices::InstantServices()
    : m_listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    socklen_t size = sizeof address;
    if (bind(m_listener, generic, size) < 0 || listen(m_listener, 16) < 0
        || getsockname(m_listener, generic, &size) < 0)
        throw std::system_error(errno, std::generic_category(), "loopback server");
    m_port = ntohs(address.sin_port);
    m_acceptor = std::thread([this] { acceptAll(); });
}

InstantServices::~InstantServices()
{
    shutdown(m_listener, SHUT_RDWR);
    m_acceptor.join();
    for (const int connection : m_connections)
        shutdown(connection, SHUT_RDWR);
    for (auto &worker : m_workers)
        worker.join();
    for (const int connection : m_connections)
        close(connection);
    close(m_listener);
}

void InstantServices::setAnswering(bool isAnswering)
{
    const std::lock_guard guard(m_mutex);
    m_isAnswering = isAnswering;
}

void InstantServices::keepBodies()
{
    const std::lock_guard guard(m_mutex);
    m_keepsBodies = true;
}

std::string InstantServices::latestBody()
{
    const std::lock_guard guard(m_mutex);
    return m_body;
}

InstantServices::Times InstantServices::waitForRequest()
{
    std::unique_lock guard(m_mutex);
    if (!m_requestCame.wait_for(
            guard, std::chrono::seconds(30), [this] { return m_unclaimedRequests > 0; }))
        throw std::runtime_error("no request came");
    --m_unclaimedRequests;
    return m_times;
}

// Connections and their threads are few and kept until the end.
void InstantServices::acceptAll()
{
    for (;;) {
        const int connection = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0)
            return;
        constexpr int on = 1;
        setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        m_connections.push_back(connection);
        m_workers.emplace_back([this, connection] { serve(connection); });
    }
}

void InstantServices::serve(int connection)
{
    RequestReader reader(connection);
    for (;;) {
        bool keepsBody = false;
        {
            const std::lock_guard guard(m_mutex);
            keepsBody = m_keepsBodies;
        }
        auto request = reader.next(keepsBody);
        if (!request)
            return;
        if (request->isPolishing) {
            answer(connection,
                   std::string(R"({"choices":[{"message":{"role":"assistant","content":")")
                       + polishedText + R"("}}]})");
        } else {
            recognise(connection, std::move(request->body));
        }
    }
}

void InstantServices::recognise(int connection, std::string body)
{
    Times times{.lastByte = Clock::now(), .answered = {}};
    std::unique_lock guard(m_mutex);
    if (m_isAnswering) {
        guard.unlock();
        answer(connection, R"({"result":{"text":"um please move the meeting to thursday"}})");
        times.answered = Clock::now();
        guard.lock();
    }
    m_times = times;
    m_body = std::move(body);
    ++m_unclaimedRequests;
    m_requestCame.notify_all();
}
