// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Autostart.h"

#include "AppRuntime.h"
#include "FileError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

// As entries quote the words of a command: once as an argument, once as a value of a file.
QString quoted(const QString &path)
{
    QString argument;
    for (const auto character : path) {
        if (u"\"`$\\"_s.contains(character))
            argument += u'\\';
        argument += character;
        if (character == u'%')
            argument += u'%';
    }
    return u'"' + argument.replace(u'\\', u"\\\\"_s) + u'"';
}

QString escaped(QString value)
{
    return value.replace(u'\\', u"\\\\"_s);
}

QByteArray entry(const QString &program)
{
    const QStringList lines{
        u"[Desktop Entry]"_s,
        u"Type=Application"_s,
        "Name="_L1 + AppRuntime::appName,
        "Icon="_L1 + AppRuntime::bundleIdentifier,
        "TryExec="_L1 + escaped(program), // gone with the program, should the entry be left
        "Exec="_L1 + quoted(program) + " --background"_L1,
        u"NoDisplay=true"_s,
    };
    return (lines.join(u'\n') + u'\n').toUtf8();
}

} // namespace

QString Autostart::entryPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + "/autostart/"_L1 + AppRuntime::bundleIdentifier + ".desktop"_L1;
}

// A desktop's own settings turn an entry off by a line in it.
bool Autostart::isOn()
{
    QFile file(entryPath());
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const auto lines = file.readAll().split('\n');
    return !lines.contains("Hidden=true") && !lines.contains("X-GNOME-Autostart-enabled=false");
}

void Autostart::turnOn(const QString &program)
{
    const auto path = entryPath();
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    errno = 0;
    if (!file.open(QIODevice::WriteOnly) || file.write(entry(program)) < 0 || !file.commit())
        throw FileError(u"write"_s, path, errno);
}

void Autostart::turnOff()
{
    QFile file(entryPath());
    errno = 0;
    if (!file.remove() && file.exists())
        throw FileError(u"remove"_s, entryPath(), errno);
}
