// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AudioSystem.h"
#include "PulseConnection.h"

#include <functional>

// The sound server of the desktop: PulseAudio, or PipeWire in its role. It must outlive the
// recordings that it created.
class PulseAudioSystem final : public AudioSystem
{
public:
    using PermissionRequest = std::function<std::shared_ptr<MicrophonePermissionAnswer>()>;

    // Starts connecting in the background. `permission` answers requestMicrophonePermission().
    explicit PulseAudioSystem(PermissionRequest permission);

    [[nodiscard]] bool isThere() override { return m_connection.isConnected(); }
    [[nodiscard]] QString defaultInputName() override;
    [[nodiscard]] std::shared_ptr<MicrophonePermissionAnswer> requestMicrophonePermission() override
    {
        return m_permission();
    }
    [[nodiscard]] std::unique_ptr<RecordingEngine> createRecording(const QString &path) override;

private:
    PermissionRequest m_permission;
    PulseConnection m_connection;
};
