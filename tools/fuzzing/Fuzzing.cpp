// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Fuzzing.h"

#include "JsonCoding.h"

extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    try {
        fuzz(QByteArray(data, static_cast<qsizetype>(size)));
    } catch (const JsonError &error) {
        // The corpora have this in the place of every value that is nobody else's business.
        require(!error.localizedDescription().contains(QStringLiteral("sk-secret")));
    } catch (const LocalizedError &error) {
        require(!error.localizedDescription().isEmpty());
    }
    return 0;
}
