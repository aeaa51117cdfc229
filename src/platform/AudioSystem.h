// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MicrophonePermissionAnswer.h"
#include "RecordingCondition.h"

#include <QString>

#include <memory>

// One recording to a file in RecordingFormat. prepareToRecord(), record() and finish() wait for
// the sound server, within limits: they are called off the main thread. The others return at once.
class RecordingEngine
{
public:
    RecordingEngine() = default;
    virtual ~RecordingEngine();
    RecordingEngine(const RecordingEngine &) = delete;
    RecordingEngine &operator=(const RecordingEngine &) = delete;

    // Gets everything ready to record; false when there is no server or no input device.
    [[nodiscard]] virtual bool prepareToRecord() = 0;
    // Starts capturing; false when the device refuses.
    [[nodiscard]] virtual bool record() = 0;
    // Ends the recording: what has been spoken until now is the last that belongs to it.
    virtual void stop() = 0;
    // After stop(): returns when all of it has been captured, at most 150 ms after the stop, and
    // the file's header is final. What a lost device or a full disk left is still a valid file.
    virtual void finish() = 0;
    // Since record() succeeded.
    [[nodiscard]] virtual RecordingCondition condition() const = 0;
    // RMS of the latest 100 ms in dBFS: a full-scale sine is -3.01, silence -160.
    [[nodiscard]] virtual float averagePowerDb() const = 0;
};

// The sound server as the recorder needs it. Safe from any thread; but for the question for the
// permission it may wait for the server, so not for the main thread.
class AudioSystem
{
public:
    AudioSystem() = default;
    virtual ~AudioSystem();
    AudioSystem(const AudioSystem &) = delete;
    AudioSystem &operator=(const AudioSystem &) = delete;

    // Whether a server answers, for which it is waited two seconds.
    [[nodiscard]] virtual bool isThere() = 0;
    // The default input device's own description; empty when there is none. What an output plays
    // is no input.
    [[nodiscard]] virtual QString defaultInputName() = 0;
    // Asks whether this application may use the microphone and returns at once. Main thread only.
    [[nodiscard]] virtual std::shared_ptr<MicrophonePermissionAnswer>
    requestMicrophonePermission() = 0;
    // An engine that writes to a new file at `path` (mode 0600, never through a link). Throws
    // LocalizedError when the file cannot be created.
    [[nodiscard]] virtual std::unique_ptr<RecordingEngine> createRecording(const QString &path) = 0;
};
