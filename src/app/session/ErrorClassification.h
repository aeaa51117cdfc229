// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HushwireError.h"

#include <exception>
#include <optional>

// What kind of error of ours this is; absent when it is the platform's. Must not be null.
[[nodiscard]] std::optional<HushwireError::Kind> kindOf(const std::exception_ptr &error);

// Whether the error says that this process may not post input to other applications.
[[nodiscard]] bool isAccessibilityPermissionError(const std::exception_ptr &error);
