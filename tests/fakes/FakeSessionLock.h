// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SessionLock.h"

#include <utility>

// A session that is locked when the test says so.
class FakeSessionLock final : public SessionLock
{
public:
    void start(Handler handler) override { tell = std::move(handler); }

    Handler tell;
};
