// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FocusedApplication.h"

// The application whose window is active, by what applications tell screen readers; without names
// where none says so, as those do not that offer nothing to screen readers. Waits 150 ms
// at most for an answer. Any thread but the main one.
[[nodiscard]] FocusedApplication focusedApplicationByAccessibility();
