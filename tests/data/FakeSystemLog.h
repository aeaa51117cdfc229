// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

// Stands in for the system's log: this program defines the C library's functions itself.
namespace FakeSystemLog {

// The lines reported since the last call, each with the ident before it.
[[nodiscard]] QStringList takeLines();

} // namespace FakeSystemLog
