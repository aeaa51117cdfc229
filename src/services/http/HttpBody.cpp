// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpBody.h"

#include "LocalizedError.h"

#include <algorithm>
#include <cstring>

HttpBody::HttpBody(qint64 size)
    : m_size(size)
{
    open(ReadOnly | Unbuffered);
}

bool HttpBody::seek(qint64 position)
{
    return position == m_sent && QIODevice::seek(position);
}

qint64 HttpBody::readData(char *data, qint64 limit)
{
    if (atEnd() || !m_failure.isEmpty())
        return -1;
    try {
        const auto count = produce(data, std::min(limit, bytesAvailable()));
        m_sent += count;
        emit progressed();
        return count;
    } catch (const LocalizedError &error) {
        m_failure = error.localizedDescription();
        emit failed();
        return -1;
    }
}

qint64 HttpBody::writeData(const char * /*data*/, qint64 /*size*/)
{
    return -1;
}

BytesBody::BytesBody(const QByteArray &bytes)
    : HttpBody(bytes.size())
    , m_bytes(bytes)
{}

qint64 BytesBody::produce(char *data, qint64 limit)
{
    std::memcpy(data, m_bytes.constData() + m_position, static_cast<size_t>(limit));
    m_position += limit;
    return limit;
}
