// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clipboard.h"

struct zwlr_data_control_device_v1;
struct zwlr_data_control_manager_v1;
struct zwlr_data_control_source_v1;
class WaylandConnection;

// The clipboard and the primary selection by the data control of wlroots, which needs no window.
// The compositor does not tell who fetches.
class WaylandClipboard final : public Clipboard
{
public:
    // Whether the compositor has such a control.
    [[nodiscard]] static bool isOffered(const WaylandConnection &connection);

    explicit WaylandClipboard(WaylandConnection &connection);
    ~WaylandClipboard() override;

    [[nodiscard]] bool
    offer(const QString &text, ClipboardSelections selections, FetchHandler fetched = {}) override;
    // Clipboard managers are not to be told from others.
    [[nodiscard]] bool isKeptAfterUs() const override { return false; }
    // Clipboard managers have taken what they keep when it was offered.
    void handOver() override {}

private:
    class Source;

    [[nodiscard]] zwlr_data_control_source_v1 *makeSource(const QByteArray &text);
    void noteFetch(quint64 offer);

    WaylandConnection &m_connection;
    zwlr_data_control_manager_v1 *m_manager = nullptr;
    zwlr_data_control_device_v1 *m_device = nullptr;
    quint64 m_offer = 0; // counts
    FetchHandler m_fetched;
    // Gone with this object, which what it has offered may outlive.
    std::shared_ptr<char> m_lifetime = std::make_shared<char>();
};
