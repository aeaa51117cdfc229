// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpBody.h"

#include <algorithm>
#include <cstring>

HttpBody::HttpBody(qint64 size)
    : m_size(size)
{}

qint64 HttpBody::read(char *data, qint64 limit)
{
    const auto count = std::min(limit, m_size - m_read);
    if (count > 0)
        produce(data, count);
    m_read += count;
    return count;
}

BytesBody::BytesBody(const QByteArray &bytes)
    : HttpBody(bytes.size())
    , m_bytes(bytes)
{}

void BytesBody::produce(char *data, qint64 count)
{
    std::memcpy(data, m_bytes.constData() + m_position, static_cast<size_t>(count));
    m_position += count;
}
