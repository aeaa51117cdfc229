// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "X11Connection.h"

// To be held from a request to its reply, whichever thread asks. The reply wakes the event loop
// too, which waits until this is gone: unable to read meanwhile, it would turn in circles, at times
// on the very core that the asking thread needs. Events that are read in passing, without waking
// the event loop, are handled from it soon afterwards.
class X11RoundTrip final
{
public:
    explicit X11RoundTrip(X11Connection &connection);
    ~X11RoundTrip();
    X11RoundTrip(const X11RoundTrip &) = delete;
    X11RoundTrip &operator=(const X11RoundTrip &) = delete;

private:
    X11Connection &m_connection;
    const std::lock_guard<std::mutex> m_lock;
};
