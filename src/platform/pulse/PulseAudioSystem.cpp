// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PulseAudioSystem.h"

#include "PulseRecordingEngine.h"

PulseAudioSystem::PulseAudioSystem(PermissionRequest permission)
    : m_permission(std::move(permission))
{
    m_connection.connectAhead();
}

QString PulseAudioSystem::defaultInputName()
{
    const auto source = m_connection.defaultSource();
    return source ? source->description : QString();
}

std::unique_ptr<RecordingEngine> PulseAudioSystem::createRecording(const QString &path)
{
    return std::make_unique<PulseRecordingEngine>(m_connection, path);
}
