// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TemporaryHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

TemporaryHome::TemporaryHome()
{
    for (const auto *name : {"HOME", "XDG_RUNTIME_DIR"})
        m_saved.emplace_back(name, qgetenv(name));
    qputenv("HOME", m_home.path().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", m_runtime.path().toLocal8Bit());
}

TemporaryHome::~TemporaryHome()
{
    for (const auto &[name, value] : m_saved)
        value.isNull() ? qunsetenv(name) : qputenv(name, value);
}

QString TemporaryHome::path(const QString &relative) const
{
    return m_home.filePath(relative);
}

QString TemporaryHome::runtimePath(const QString &relative) const
{
    return m_runtime.filePath(relative);
}

QByteArray TemporaryHome::read(const QString &relative) const
{
    QFile file(path(relative));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TemporaryHome::write(const QString &relative, const QByteArray &content) const
{
    QDir().mkpath(QFileInfo(path(relative)).absolutePath());
    QFile file(path(relative));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

QStringList recordings()
{
    return QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).entryList({u"wrenfold-*.wav"_s});
}
