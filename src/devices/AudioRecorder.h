// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AudioSystem.h"

#include <QUrl>

#include <memory>

// Records the default microphone into a temporary WAV file, one recording at a time. Main thread
// only, but for requestPermission(), permissionStatusDescription() and microphoneName().
class AudioRecorder final
{
public:
    explicit AudioRecorder(AudioSystem &system);
    ~AudioRecorder();
    AudioRecorder(const AudioRecorder &) = delete;
    AudioRecorder &operator=(const AudioRecorder &) = delete;

    // Removes the recordings that a crash of ours left in the temporary directory. Only while this
    // is the user's one instance, and not recording.
    static void sweepLeftovers();

    // Whether the microphone may be used.
    [[nodiscard]] bool requestPermission();
    // "notDetermined", "restricted", "denied", "authorized" or "unknown", for the log.
    [[nodiscard]] QString permissionStatusDescription();
    // The default input device's description, or "默认麦克风" when there is none.
    [[nodiscard]] QString microphoneName();

    // Starts a recording and returns its file. Throws HushwireError::recordingFailed, or
    // LocalizedError when the file cannot be created.
    QUrl start();
    // Ends the recording and returns its finished file, which is the caller's from then on. Throws
    // HushwireError::recordingFailed when nothing is recording.
    QUrl stop();
    // The current input level, 0.18 (-60 dBFS and below, or idle) to 1.0 (0 dBFS).
    [[nodiscard]] double normalizedPowerLevel() const;

private:
    AudioSystem &m_system;
    std::unique_ptr<RecordingEngine> m_recorder;
    QUrl m_currentURL;
};
