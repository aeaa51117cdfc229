// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpBody.h"

#include <QFile>

#include <memory>

// A body that wraps a file's base64 text between a prefix and a suffix, made while it is sent: no
// more than a block of the file is in memory at any time.
class Base64FileBody final : public HttpBody
{
public:
    // Opens the file. Throws LocalizedError when it cannot be read; a file that shrinks later makes
    // the body fail, one that grows is sent as long as it was.
    Base64FileBody(const QString &path, QByteArray prefix, QByteArray suffix);

protected:
    void produce(char *data, qint64 count) override;

private:
    explicit Base64FileBody(std::unique_ptr<QFile> file, QByteArray prefix, QByteArray suffix);

    void encodeNextBlock();

    std::unique_ptr<QFile> m_file;
    qint64 m_left; // bytes of the file still to be read
    QByteArray m_suffix;
    QByteArray m_raw; // a block of the file
    QByteArray m_ready; // text to be sent next, from m_offset on
    qint64 m_offset = 0;
};
