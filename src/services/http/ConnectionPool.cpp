// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ConnectionPool.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace {

// What is older is not relied upon when it can be replaced in time.
constexpr auto freshTime = 5s;

} // namespace

ConnectionPool::ConnectionPool(ConnectionMakers &makers)
    : m_makers(makers)
{}

void ConnectionPool::openAhead(const HttpAddress &origin)
{
    const auto idle = idleConnection(origin);
    if (!youngOpening(origin) && (!idle || idle->idleTime() > freshTime))
        open(origin, {});
}

void ConnectionPool::take(const HttpAddress &origin, const Taken &taken)
{
    if (const auto idle = idleConnection(origin)) {
        std::erase(m_idle, idle);
        taken(idle, {});
    } else if (auto *opening = youngOpening(origin)) {
        opening->waiter = taken;
    } else {
        open(origin, taken);
    }
}

void ConnectionPool::keep(const std::shared_ptr<HttpConnection> &connection)
{
    if (const auto former = idleConnection(connection->origin())) {
        std::erase(m_idle, former);
        former->close();
    }
    m_idle.push_back(connection);
}

void ConnectionPool::close()
{
    for (const auto &opening : m_openings)
        opening.opener->abandon();
    m_openings.clear();
    for (const auto &connection : m_idle)
        connection->close();
    m_idle.clear();
}

void ConnectionPool::open(const HttpAddress &origin, const Taken &waiter)
{
    const auto place = m_openings.insert(m_openings.end(), {origin, waiter, {}, Clock::now()});
    const auto done = [this, place](OpenedConnection opened, const std::exception_ptr &error) {
        const auto opening = std::move(*place);
        m_openings.erase(place);
        finish(opening, std::move(opened), error);
    };
    place->opener = std::make_shared<ConnectionOpener>(m_makers, origin, done);
    place->opener->start();
}

void ConnectionPool::finish(const Opening &opening,
                            OpenedConnection opened,
                            const std::exception_ptr &error)
{
    if (error) {
        // Without one who waits nobody needs to know: the request will say the same.
        if (opening.waiter)
            opening.waiter({}, error);
        return;
    }
    const auto connection =
        std::make_shared<HttpConnection>(m_makers.context, opening.origin, std::move(opened));
    connection->start();
    if (opening.waiter)
        opening.waiter(connection, {});
    else
        keep(connection);
}

ConnectionPool::Opening *ConnectionPool::youngOpening(const HttpAddress &origin)
{
    const auto found = std::ranges::find_if(m_openings, [&origin](const auto &each) {
        return each.origin == origin && !each.waiter && Clock::now() - each.startedAt < freshTime;
    });
    return found == m_openings.end() ? nullptr : &*found;
}

std::shared_ptr<HttpConnection> ConnectionPool::idleConnection(const HttpAddress &origin)
{
    std::erase_if(m_idle, [](const auto &each) {
        const bool isUseless = !each->isUsable();
        if (isUseless)
            each->close();
        return isUseless;
    });
    const auto found = std::ranges::find_if(
        m_idle, [&origin](const auto &each) { return each->origin() == origin; });
    return found == m_idle.end() ? nullptr : *found;
}
