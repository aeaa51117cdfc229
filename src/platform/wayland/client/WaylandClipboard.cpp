// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandClipboard.h"

#include "WaylandConnection.h"
#include "wlr-data-control-unstable-v1.h"

#include <wayland-client.h>

namespace {

// The names by which applications ask for a text.
constexpr const char *textTypes[] = {
    "text/plain;charset=utf-8", "text/plain", "UTF8_STRING", "STRING", "TEXT"};

void ignoreOffer(void *, zwlr_data_control_device_v1 *, zwlr_data_control_offer_v1 *) {}

void dropOffer(void *, zwlr_data_control_device_v1 *, zwlr_data_control_offer_v1 *offer)
{
    if (offer != nullptr)
        zwlr_data_control_offer_v1_destroy(offer);
}

void ignoreEnd(void *, zwlr_data_control_device_v1 *) {}

// What others copy is none of our business.
constexpr zwlr_data_control_device_v1_listener deviceListener{
    &ignoreOffer, &dropOffer, &ignoreEnd, &dropOffer};

} // namespace

// A text on offer; lives until another takes its place.
class WaylandClipboard::Source final
{
public:
    Source(WaylandConnection &connection, QByteArray text, std::function<void()> fetched)
        : m_connection(connection)
        , m_text(std::move(text))
        , m_fetched(std::move(fetched))
    {}

    static constexpr zwlr_data_control_source_v1_listener listener();

private:
    static void send(void *self, zwlr_data_control_source_v1 *, const char *, int file)
    {
        auto &source = *static_cast<Source *>(self);
        source.m_connection.write(file, source.m_text);
        source.m_connection.post(source.m_fetched);
    }

    static void cancel(void *self, zwlr_data_control_source_v1 *object)
    {
        zwlr_data_control_source_v1_destroy(object);
        delete static_cast<Source *>(self);
    }

    WaylandConnection &m_connection;
    QByteArray m_text;
    std::function<void()> m_fetched;
};

constexpr zwlr_data_control_source_v1_listener WaylandClipboard::Source::listener()
{
    return {&send, &cancel};
}

bool WaylandClipboard::isOffered(const WaylandConnection &connection)
{
    return connection.offers(zwlr_data_control_manager_v1_interface.name);
}

WaylandClipboard::WaylandClipboard(WaylandConnection &connection)
    : m_connection(connection)
    , m_manager(connection.global<zwlr_data_control_manager_v1>(
          zwlr_data_control_manager_v1_interface, 2))
{
    const auto lock = m_connection.lock();
    // NOLINTNEXTLINE(cppcoreguidelines-prefer-member-initializer): only while the lock is held
    m_device = zwlr_data_control_manager_v1_get_data_device(m_manager, m_connection.seat());
    zwlr_data_control_device_v1_add_listener(m_device, &deviceListener, nullptr);
}

WaylandClipboard::~WaylandClipboard()
{
    const auto lock = m_connection.lock();
    zwlr_data_control_device_v1_destroy(m_device);
}

bool WaylandClipboard::offer(const QString &text,
                             ClipboardSelections selections,
                             FetchHandler fetched)
{
    m_fetched = std::move(fetched);
    ++m_offer;
    const auto content = text.toUtf8();
    const auto lock = m_connection.lock();
    zwlr_data_control_device_v1_set_selection(m_device, makeSource(content));
    const bool hasPrimary = zwlr_data_control_device_v1_get_version(m_device)
        >= ZWLR_DATA_CONTROL_DEVICE_V1_SET_PRIMARY_SELECTION_SINCE_VERSION;
    if (hasPrimary && selections == ClipboardSelections::ClipboardAndPrimary)
        zwlr_data_control_device_v1_set_primary_selection(m_device, makeSource(content));
    m_connection.flush();
    return true;
}

zwlr_data_control_source_v1 *WaylandClipboard::makeSource(const QByteArray &text)
{
    static constexpr auto listener = Source::listener();
    auto *const object = zwlr_data_control_manager_v1_create_data_source(m_manager);
    const auto fetched = [this, offer = m_offer, alive = std::weak_ptr(m_lifetime)] {
        if (!alive.expired())
            noteFetch(offer);
    };
    zwlr_data_control_source_v1_add_listener(
        object, &listener, new Source(m_connection, text, fetched));
    for (const auto *const type : textTypes)
        zwlr_data_control_source_v1_offer(object, type);
    return object;
}

void WaylandClipboard::noteFetch(quint64 offer)
{
    if (offer == m_offer && m_fetched)
        m_fetched();
}
