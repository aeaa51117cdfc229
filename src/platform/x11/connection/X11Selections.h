// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

struct xcb_connection_t;

// Selections by which the X server's clients find each other: a client that offers a service owns
// one.
namespace X11Selections {

// The connection Qt itself uses; null when Qt does not run on X11.
[[nodiscard]] xcb_connection_t *applicationConnection();

// The atom of the name, made if need be; 0 when the connection is lost.
[[nodiscard]] quint32 atom(xcb_connection_t *connection, const QByteArray &name);

// The name of a selection that each screen has one of, for the default screen.
[[nodiscard]] QByteArray nameForScreen(const QByteArray &prefix);

// The window that owns the selection; 0 when there is none.
[[nodiscard]] quint32 owner(xcb_connection_t *connection, quint32 selection);

} // namespace X11Selections
