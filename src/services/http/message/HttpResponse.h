// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <optional>
#include <utility>

// A complete answer, whatever its status.
struct HttpResponse
{
    int status = 0;
    QList<std::pair<QByteArray, QByteArray>> headers;
    QByteArray body;

    [[nodiscard]] bool isSuccess() const { return status >= 200 && status < 300; }
    // The value of a header, its name compared without regard to case; nothing when it is absent.
    [[nodiscard]] std::optional<QByteArray> header(const QByteArray &name) const;
};
