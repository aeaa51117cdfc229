// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <memory>

// Frees what libxcb hands out: replies, errors and events.
struct XcbFree
{
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): libxcb allocates with malloc
    void operator()(void *memory) const { std::free(memory); }
};

template<typename T>
using X11Reply = std::unique_ptr<T, XcbFree>;
