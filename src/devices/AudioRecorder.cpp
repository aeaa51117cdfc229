// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AudioRecorder.h"

#include "AppLogger.h"
#include "AppRuntime.h"
#include "HushwireError.h"
#include "TemporaryDirectory.h"
#include "Text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr double quietestLevel = 0.18;

QString newRecordingPath(const QString &directory)
{
    const QString name = QString(AppRuntime::tempAudioPrefix) + u'-' + newUuidText() + u".wav"_s;
    return QDir(directory).filePath(name);
}

} // namespace

AudioRecorder::AudioRecorder(AudioSystem &system)
    : m_system(system)
{}

AudioRecorder::~AudioRecorder() = default;

void AudioRecorder::sweepLeftovers()
{
    const QString directory = temporaryDirectoryPath();
    if (directory.isEmpty())
        return;
    static const QRegularExpression pattern(
        u'^' + QRegularExpression::escape(AppRuntime::tempAudioPrefix)
        + u"-[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\\.wav$"_s);
    const auto files = QDir(directory).entryInfoList(QDir::Files | QDir::NoSymLinks);
    for (const auto &file : files) {
        // What cannot be removed now is tried again at the next launch.
        if (file.ownerId() == ::getuid() && pattern.match(file.fileName()).hasMatch())
            QFile::remove(file.filePath());
    }
}

bool AudioRecorder::requestPermission()
{
    return m_system.microphonePermission() == MicrophonePermission::Authorized;
}

QString AudioRecorder::permissionStatusDescription()
{
    switch (m_system.microphonePermission()) {
    case MicrophonePermission::NotDetermined:
        return u"notDetermined"_s;
    case MicrophonePermission::Restricted:
        return u"restricted"_s;
    case MicrophonePermission::Denied:
        return u"denied"_s;
    case MicrophonePermission::Authorized:
        return u"authorized"_s;
    }
    return u"unknown"_s;
}

QString AudioRecorder::microphoneName()
{
    const QString name = m_system.defaultInputName();
    return name.isEmpty() ? u"默认麦克风"_s : name;
}

QUrl AudioRecorder::start()
{
    const QString directory = temporaryDirectoryPath();
    if (directory.isEmpty())
        throw LocalizedError(u"No safe directory for temporary files."_s);
    const QString path = newRecordingPath(directory);
    const bool isWritable = QFileInfo(directory).isWritable();
    auto engine = m_system.createRecording(path);
    const bool isPrepared = engine->prepareToRecord();
    const bool isStarted = isPrepared && engine->record();
    AppLogger::info(u"AVAudioRecorder start result. prepared=%1 started=%2 tempDirectoryWritable=%3"
                    " permission=%4 input=%5"_s.arg(flagText(isPrepared),
                                                    flagText(isStarted),
                                                    flagText(isWritable),
                                                    permissionStatusDescription(),
                                                    microphoneName()));
    if (!isStarted) {
        engine.reset();
        QFile::remove(path); // nothing was recorded; a file that stays is swept at the next launch
        throw HushwireError::recordingFailed(u"录音没有启动成功。请检查系统麦克风权限和输入设备，"
                                             "然后退出 Wrenfold 后重新打开再试。"_s);
    }
    m_recorder = std::move(engine);
    m_currentURL = QUrl::fromLocalFile(path);
    return m_currentURL;
}

QUrl AudioRecorder::stop()
{
    if (!m_recorder)
        throw HushwireError::recordingFailed(u"当前没有正在进行的录音。"_s);
    m_recorder->stop();
    m_recorder.reset();
    return std::exchange(m_currentURL, {});
}

double AudioRecorder::normalizedPowerLevel() const
{
    if (!m_recorder)
        return quietestLevel;
    const double power = m_recorder->averagePowerDb();
    const double level = std::clamp((power + 60.0) / 60.0, 0.0, 1.0);
    return level * (1.0 - quietestLevel) + quietestLevel;
}
