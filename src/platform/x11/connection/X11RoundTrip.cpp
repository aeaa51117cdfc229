// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11RoundTrip.h"

X11RoundTrip::X11RoundTrip(X11Connection &connection)
    : m_connection(connection)
    , m_lock(connection.m_repliesMutex)
{}

X11RoundTrip::~X11RoundTrip()
{
    m_connection.drainSoon();
}
