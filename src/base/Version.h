// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace AppRuntime {

// The version of this build, as in "1.2.3".
[[nodiscard]] QString version();

} // namespace AppRuntime
