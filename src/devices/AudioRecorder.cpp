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

std::shared_ptr<MicrophonePermissionAnswer> AudioRecorder::requestPermission()
{
    return m_system.requestMicrophonePermission();
}

QString AudioRecorder::permissionStatusDescription(MicrophonePermission permission)
{
    switch (permission) {
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

std::unique_ptr<Recording> AudioRecorder::start(const QString &microphone,
                                                MicrophonePermission permission)
{
    const bool isWritable = QFileInfo(temporaryDirectoryPath()).isWritable();
    auto recording = std::make_unique<Recording>(m_system);
    const bool isPrepared = recording->engine().prepareToRecord();
    const bool isStarted = isPrepared && recording->engine().record();
    AppLogger::info(u"AVAudioRecorder start result. prepared=%1 started=%2 tempDirectoryWritable=%3"
                    " permission=%4 input=%5"_s.arg(flagText(isPrepared),
                                                    flagText(isStarted),
                                                    flagText(isWritable),
                                                    permissionStatusDescription(permission),
                                                    microphone));
    if (!isStarted)
        throw HushwireError::recordingFailed(u"录音没有启动成功。请检查系统麦克风权限和输入设备，"
                                             "然后退出 Wrenfold 后重新打开再试。"_s);
    return recording;
}

void AudioRecorder::keep(std::unique_ptr<Recording> recording)
{
    m_recording = std::move(recording);
}

std::unique_ptr<Recording> AudioRecorder::stop()
{
    if (!m_recording)
        throw HushwireError::recordingFailed(u"当前没有正在进行的录音。"_s);
    m_recording->engine().stop();
    return std::move(m_recording);
}

void AudioRecorder::discard()
{
    m_recording.reset();
}

RecordingCondition AudioRecorder::condition() const
{
    return m_recording ? m_recording->engine().condition() : RecordingCondition::Capturing;
}

double AudioRecorder::normalizedPowerLevel() const
{
    if (!m_recording)
        return quietestLevel;
    const auto power = static_cast<double>(m_recording->engine().averagePowerDb());
    const double level = std::clamp((power + 60.0) / 60.0, 0.0, 1.0);
    return level * (1.0 - quietestLevel) + quietestLevel;
}
