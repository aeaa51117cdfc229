// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WavFile.h"

#include "LocalizedError.h"
#include "RecordingFormat.h"

#include <QFile>
#include <QtEndian>

#include <array>
#include <cerrno>
#include <limits>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Header = std::array<char, RecordingFormat::headerBytes>;

Header headerFor(std::uint32_t dataBytes)
{
    Header header{};
    char *position = header.data();
    const auto tag = [&position](const char *text) { position = std::copy_n(text, 4, position); };
    const auto number = [&position](auto value) {
        qToLittleEndian(value, position);
        position += sizeof value;
    };
    tag("RIFF");
    number(dataBytes + static_cast<std::uint32_t>(RecordingFormat::headerBytes - 8));
    tag("WAVE");
    tag("fmt ");
    number(std::uint32_t{16}); // the size of this chunk
    number(std::uint16_t{1}); // linear PCM
    number(std::uint16_t{1}); // one channel
    number(RecordingFormat::sampleRate);
    number(RecordingFormat::bytesPerSecond);
    number(RecordingFormat::bytesPerSample);
    number(std::uint16_t{8 * RecordingFormat::bytesPerSample}); // bits
    tag("data");
    number(dataBytes);
    return header;
}

// The number of bytes that reached the file: fewer than `size` when the disk is full.
std::size_t writeAll(int descriptor, const char *data, std::size_t size)
{
    std::size_t written = 0;
    while (written < size) {
        const auto count = ::write(descriptor, data + written, size - written);
        if (count > 0)
            written += static_cast<std::size_t>(count);
        else if (count == 0 || errno != EINTR)
            break;
    }
    return written;
}

LocalizedError creationError(const QString &path, int code)
{
    return LocalizedError(u"Cannot create %1: %2."_s.arg(path, qt_error_string(code)));
}

} // namespace

WavFile::WavFile(const QString &path)
{
    const auto name = QFile::encodeName(path);
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    m_descriptor = ::open(name.constData(), flags, 0600);
    if (m_descriptor < 0)
        throw creationError(path, errno);
    const auto header = headerFor(0);
    if (writeAll(m_descriptor, header.data(), header.size()) == header.size())
        return;
    const int code = errno;
    ::close(m_descriptor);
    ::unlink(name.constData());
    throw creationError(path, code);
}

WavFile::~WavFile()
{
    finish();
}

void WavFile::append(std::span<const std::int16_t> samples)
{
    constexpr auto mostBytes =
        std::numeric_limits<std::uint32_t>::max() - RecordingFormat::headerBytes;
    const auto bytes = samples.size_bytes();
    if (m_isFull || m_descriptor < 0 || bytes == 0)
        return;
    if (m_dataBytes + bytes > mostBytes) {
        m_isFull = true;
        return;
    }
    const auto *data = reinterpret_cast<const char *>(samples.data());
    const auto written = writeAll(m_descriptor, data, bytes);
    m_dataBytes += static_cast<std::uint32_t>(written);
    m_isFull = written < bytes;
}

void WavFile::finish()
{
    if (m_descriptor < 0)
        return;
    m_dataBytes -= m_dataBytes % RecordingFormat::bytesPerSample;
    const auto header = headerFor(m_dataBytes);
    // Neither can be helped here: the recording is then as long as its reader finds it to be.
    [[maybe_unused]] const int cut =
        ::ftruncate(m_descriptor, RecordingFormat::headerBytes + m_dataBytes);
    [[maybe_unused]] const auto count = ::pwrite(m_descriptor, header.data(), header.size(), 0);
    ::close(m_descriptor);
    m_descriptor = -1;
}
