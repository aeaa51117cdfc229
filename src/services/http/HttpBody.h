// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QIODevice>

// A request body that is read exactly once, from beginning to end. It refuses to go back, which is
// what keeps the network library from sending a request a second time on its own.
class HttpBody : public QIODevice
{
    Q_OBJECT
public:
    // The exact number of bytes.
    [[nodiscard]] qint64 size() const final { return m_size; }
    [[nodiscard]] bool isSequential() const final { return false; }
    [[nodiscard]] bool atEnd() const final { return m_sent >= m_size; }
    [[nodiscard]] qint64 bytesAvailable() const final { return m_size - m_sent; }
    bool seek(qint64 position) final;

    // Why reading stopped before the end; empty while all is well.
    [[nodiscard]] QString failure() const { return m_failure; }

signals:
    // Bytes were taken on their way to the network.
    void progressed();
    // Reading cannot go on; failure() says why.
    void failed();

protected:
    explicit HttpBody(qint64 size);

    // The next bytes at `data`, at most `limit` of them and at least one. Throws LocalizedError.
    virtual qint64 produce(char *data, qint64 limit) = 0;

    qint64 readData(char *data, qint64 limit) final;
    qint64 writeData(const char *data, qint64 size) final;

private:
    qint64 m_size;
    qint64 m_sent = 0;
    QString m_failure;
};

// A body that is all in memory.
class BytesBody final : public HttpBody
{
    Q_OBJECT
public:
    explicit BytesBody(const QByteArray &bytes);

protected:
    qint64 produce(char *data, qint64 limit) override;

private:
    QByteArray m_bytes;
    qint64 m_position = 0;
};
