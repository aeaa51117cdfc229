// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PasteChord.h"

#include <QByteArrayList>

// The chord by which an application pastes, known by any of the names that its windows carry,
// whatever their case.
[[nodiscard]] PasteChord pasteChordOf(const QByteArrayList &applicationNames);
