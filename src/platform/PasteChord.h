// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// How an application is told to paste.
enum class PasteChord {
    ControlV, // reads the clipboard
    ShiftInsert, // reads the primary selection in most terminals, the clipboard elsewhere
};
