// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Base64FileBody.h"

#include "LocalizedError.h"

#include <cstring>

using namespace Qt::StringLiterals;

namespace {

// A multiple of 3, so that only the last block is padded.
constexpr qint64 blockSize = 48 * 1024;

std::unique_ptr<QFile> openedFile(const QString &path)
{
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw LocalizedError(
            u"The file \"%1\" could not be read: %2."_s.arg(path, file->errorString()));
    return file;
}

constexpr qint64 base64Size(qint64 size)
{
    return (size + 2) / 3 * 4;
}

} // namespace

Base64FileBody::Base64FileBody(const QString &path, QByteArray prefix, QByteArray suffix)
    : Base64FileBody(openedFile(path), std::move(prefix), std::move(suffix))
{}

Base64FileBody::Base64FileBody(std::unique_ptr<QFile> file, QByteArray prefix, QByteArray suffix)
    : HttpBody(prefix.size() + base64Size(file->size()) + suffix.size())
    , m_file(std::move(file))
    , m_left(m_file->size())
    , m_suffix(std::move(suffix))
    , m_ready(std::move(prefix))
{}

void Base64FileBody::produce(char *data, qint64 count)
{
    while (count > 0) {
        if (m_offset == m_ready.size())
            encodeNextBlock();
        const auto part = std::min<qint64>(count, m_ready.size() - m_offset);
        std::memcpy(data, m_ready.constData() + m_offset, static_cast<size_t>(part));
        m_offset += part;
        data += part;
        count -= part;
    }
}

void Base64FileBody::encodeNextBlock()
{
    m_offset = 0;
    if (m_left == 0) {
        m_ready = std::exchange(m_suffix, {});
        return;
    }
    m_raw.resize(std::min(m_left, blockSize));
    if (m_file->read(m_raw.data(), m_raw.size()) != m_raw.size())
        throw LocalizedError(
            u"The file \"%1\" could not be read to its end."_s.arg(m_file->fileName()));
    m_left -= m_raw.size();
    m_ready = m_raw.toBase64();
}
