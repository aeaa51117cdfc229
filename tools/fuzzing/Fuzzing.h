// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "LocalizedError.h"

#include <QByteArray>

#include <cstdlib>

// One run, which each target is; LocalizedError is a refusal, anything else that it throws a fault.
void fuzz(const QByteArray &input);

// Ends the program, which libFuzzer reports with the input, unless this holds.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

// What the function returns, where no input is to be refused any more.
template<typename Function>
auto accepted(const Function &function) noexcept
{
    return function();
}
