// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Recording.h"

#include "AppRuntime.h"
#include "LocalizedError.h"
#include "TemporaryDirectory.h"
#include "Text.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

QString newPath()
{
    const QString directory = temporaryDirectoryPath();
    if (directory.isEmpty())
        throw LocalizedError(u"No safe directory for temporary files."_s);
    const QString name = QString(AppRuntime::tempAudioPrefix) + u'-' + newUuidText() + u".wav"_s;
    return QDir(directory).filePath(name);
}

} // namespace

Recording::Recording(AudioSystem &system)
    : m_path(newPath())
    , m_engine(system.createRecording(m_path))
{}

Recording::~Recording()
{
    m_engine.reset();
    if (!m_isFinished)
        QFile::remove(m_path); // a file that stays is swept at the next launch
}

QUrl Recording::finish()
{
    m_engine->finish();
    m_isFinished = true;
    return QUrl::fromLocalFile(m_path);
}
