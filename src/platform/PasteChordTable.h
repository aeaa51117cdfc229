// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FocusedApplication.h"
#include "PasteChord.h"

#include <QByteArrayList>

// The chord by which an application pastes, known by any of the names that its windows carry,
// whatever their case.
[[nodiscard]] PasteChord pasteChordOf(const QByteArrayList &applicationNames);
// The chord for the application in front: one that nearly all understand where it is unknown.
[[nodiscard]] PasteChord pasteChordOf(const FocusedApplication &application);
