// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "HistoryCoding.h"

void fuzz(const QByteArray &input)
{
    const auto items = decodeHistory(input);
    require(accepted([&] { return decodeHistory(encodeHistory(items)); }) == items);
}
