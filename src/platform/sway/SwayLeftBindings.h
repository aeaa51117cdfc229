// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>

// What this program has bound in sway, on disk as long as it is bound: sway keeps the bindings of
// a client that has crashed.
namespace SwayLeftBindings {

// These and no others are bound now.
void remember(const QByteArrayList &combinations);
// Gives back what an earlier run has left bound.
void sweep();

} // namespace SwayLeftBindings
