// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpResponse.h"

std::optional<QByteArray> HttpResponse::header(const QByteArray &name) const
{
    for (const auto &[known, value] : headers)
        if (known.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    return {};
}
