// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HushwireError.h"

#include <array>
#include <string>

// What an operation came to, in a form that tables can state: "= text" for a result, else the kind
// and the message of our error. Other exceptions pass.
template<typename Operation>
std::string outcome(const Operation &operation)
{
    static constexpr std::array kinds{"configMissing: ",
                                      "permissionMissing: ",
                                      "recordingFailed: ",
                                      "serviceFailed: ",
                                      "responseFailed: ",
                                      "pasteFailed: "};
    try {
        return "= " + operation().toStdString();
    } catch (const HushwireError &error) {
        return kinds.at(static_cast<size_t>(error.kind())) + std::string(error.what());
    }
}
