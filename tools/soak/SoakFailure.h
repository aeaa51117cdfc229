// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <stdexcept>

// The first wrong thing of a run, in a sentence.
class SoakFailure final : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// Throws SoakFailure unless the condition holds.
inline void require(bool holds, const QString &otherwise)
{
    if (!holds)
        throw SoakFailure(otherwise.toStdString());
}
