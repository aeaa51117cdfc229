// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

// A request body that is read exactly once, from beginning to end.
class HttpBody
{
public:
    virtual ~HttpBody() = default;

    // The exact number of bytes.
    [[nodiscard]] qint64 size() const { return m_size; }
    // Copies the next bytes to `data`, as many as fit into `limit`; returns their number, 0 at the
    // end. Throws LocalizedError.
    [[nodiscard]] qint64 read(char *data, qint64 limit);

protected:
    explicit HttpBody(qint64 size);

    // Copies the next `count` bytes to `data`; there are as many. Throws LocalizedError.
    virtual void produce(char *data, qint64 count) = 0;

private:
    const qint64 m_size;
    qint64 m_read = 0;
};

// A body that is all in memory.
class BytesBody final : public HttpBody
{
public:
    explicit BytesBody(const QByteArray &bytes);

protected:
    void produce(char *data, qint64 count) override;

private:
    QByteArray m_bytes;
    qint64 m_position = 0;
};
