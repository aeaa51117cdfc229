// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfigCoding.h"
#include "Fuzzing.h"

void fuzz(const QByteArray &input)
{
    const auto config = decodeAppConfig(input);
    require(accepted([&] { return decodeAppConfig(encodeAppConfig(config)); }) == config);
}
