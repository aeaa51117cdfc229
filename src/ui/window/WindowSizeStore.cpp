// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WindowSizeStore.h"

#include "DataDirectory.h"
#include "JsonCoding.h"
#include "SecureFile.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto drainLimit = std::chrono::milliseconds(300);

QString filePath()
{
    return DataDirectory::filePath(u"window.json"_s);
}

std::optional<QSize> readSize()
{
    try {
        const JsonObjectReader reader(parseJson(SecureFile::read(filePath())).object());
        return QSize(reader.integer<quint16>("width"_L1), reader.integer<quint16>("height"_L1));
    } catch (const LocalizedError &) {
        return {};
    }
}

void writeSize(const QSize &size)
{
    try {
        DataDirectory::create();
        const QJsonObject object{{"width"_L1, size.width()}, {"height"_L1, size.height()}};
        SecureFile::replace(filePath(), prettyPrintedJson(QJsonDocument(object)));
    } catch (const LocalizedError &) {
        // The window then comes up as large as the last time that worked.
    }
}

} // namespace

std::optional<QSize> WindowSizeStore::size()
{
    if (!std::exchange(m_isRead, true))
        m_size = readSize();
    return m_size;
}

void WindowSizeStore::keep(const QSize &size)
{
    if (std::exchange(m_size, size) != size)
        m_queue.submit([size] { writeSize(size); });
}

void WindowSizeStore::drain()
{
    m_queue.drain(drainLimit);
}
