// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

// One recording to a 16 kHz mono 16-bit WAV file. Main thread only.
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
    // Ends the recording when everything spoken until now has been captured, at most 150 ms later,
    // and finalises the file's header. What a lost device or a full disk left is still a valid
    // file.
    virtual void stop() = 0;
    // RMS of the latest 100 ms in dBFS: a full-scale sine is -3.01, silence -160.
    [[nodiscard]] virtual float averagePowerDb() const = 0;
};

enum class MicrophonePermission {
    NotDetermined,
    Restricted,
    Denied,
    Authorized,
};

// The sound server as the recorder needs it. Safe from any thread, but for createRecording().
class AudioSystem
{
public:
    AudioSystem() = default;
    virtual ~AudioSystem();
    AudioSystem(const AudioSystem &) = delete;
    AudioSystem &operator=(const AudioSystem &) = delete;

    // The default input device's own description; empty when there is none.
    [[nodiscard]] virtual QString defaultInputName() = 0;
    // Whether this application may use the microphone, without asking.
    [[nodiscard]] virtual MicrophonePermission microphonePermission() = 0;
    // An engine that writes to a new file at `path` (mode 0600, never through a link). Throws
    // LocalizedError when the file cannot be created. Main thread only.
    [[nodiscard]] virtual std::unique_ptr<RecordingEngine> createRecording(const QString &path) = 0;
};
