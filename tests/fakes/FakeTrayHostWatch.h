// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "TrayHostWatch.h"

// Reports a panel when the test says so.
class FakeTrayHostWatch final : public TrayHostWatch
{
public:
    void start(Handler handler) override { report = std::move(handler); }

    Handler report;
};
