// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The place of last resort for what cannot go into a file of ours.
namespace SystemLog {

// Sends "Wrenfold", a blank and the message to syslog(3) with ident Wrenfold, and to stderr when
// that is a terminal. Any thread may call it; it never fails.
void report(const QString &message);

} // namespace SystemLog
