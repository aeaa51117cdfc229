// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <memory>

struct xcb_connection_t;

// Frees what libxcb hands out: replies, errors and events.
struct XcbFree
{
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): libxcb allocates with malloc
    void operator()(void *memory) const { std::free(memory); }
};

template<typename T>
using X11Reply = std::unique_ptr<T, XcbFree>;

// The server's answer to the request, read by libxcb's function for it; null when the request
// failed or the connection is lost. On a connection that several threads ask, within an
// X11RoundTrip.
template<typename Reply, typename Request, typename Error>
[[nodiscard]] X11Reply<Reply> replyTo(xcb_connection_t *connection,
                                      Request request,
                                      Reply *(*read)(xcb_connection_t *, Request, Error **))
{
    return X11Reply<Reply>(read(connection, request, nullptr));
}
