// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

// A callback that calls another one, which may still be set, changed or empty, and must live
// longer.
template<typename... Arguments>
[[nodiscard]] std::function<void(Arguments...)>
forwardingTo(const std::function<void(Arguments...)> &target)
{
    return [&target](Arguments... arguments) {
        if (target)
            target(arguments...);
    };
}
