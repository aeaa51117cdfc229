// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Recording.h"

#include <QString>

#include <memory>

// Records the default microphone into a temporary WAV file, one recording at a time. Whatever asks
// the sound server may have to wait for it and is called off the main thread: microphoneName() and
// start(). The rest is for the main thread and returns at once.
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

    // Asks whether the microphone may be used; returns at once. Main thread only.
    [[nodiscard]] std::shared_ptr<MicrophonePermissionAnswer> requestPermission();
    // "notDetermined", "restricted", "denied", "authorized" or "unknown", for the log.
    [[nodiscard]] static QString permissionStatusDescription(MicrophonePermission permission);
    // The default input device's description, or "默认麦克风" when there is none.
    [[nodiscard]] QString microphoneName();

    // Starts a recording, for keep(). Throws HushwireError::recordingFailed, or LocalizedError when
    // the file cannot be created; no file is left then. What is known of the microphone is logged.
    [[nodiscard]] std::unique_ptr<Recording> start(const QString &microphone,
                                                   MicrophonePermission permission);

    // Makes a started recording the one in progress.
    void keep(std::unique_ptr<Recording> recording);
    // Ends the recording in progress with what has been spoken until now; it is to be finished off
    // the main thread. Throws HushwireError::recordingFailed when nothing is recording.
    [[nodiscard]] std::unique_ptr<Recording> stop();
    // Throws the recording in progress away, if there is one.
    void discard();
    // Of the recording in progress; Capturing when idle.
    [[nodiscard]] RecordingCondition condition() const;
    // The current input level, 0.18 (-60 dBFS and below, or idle) to 1.0 (0 dBFS).
    [[nodiscard]] double normalizedPowerLevel() const;

private:
    AudioSystem &m_system;
    std::unique_ptr<Recording> m_recording; // in progress; absent when idle
};
