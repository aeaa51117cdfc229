// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HushwireError.h"

HushwireError::HushwireError(Kind kind, const QString &message)
    : LocalizedError(message)
    , m_kind(kind)
{}

HushwireError HushwireError::configMissing(const QString &message)
{
    return {Kind::ConfigMissing, message};
}

HushwireError HushwireError::permissionMissing(const QString &message)
{
    return {Kind::PermissionMissing, message};
}

HushwireError HushwireError::recordingFailed(const QString &message)
{
    return {Kind::RecordingFailed, message};
}

HushwireError HushwireError::serviceFailed(const QString &message)
{
    return {Kind::ServiceFailed, message};
}

HushwireError HushwireError::responseFailed(const QString &message)
{
    return {Kind::ResponseFailed, message};
}

HushwireError HushwireError::pasteFailed(const QString &message)
{
    return {Kind::PasteFailed, message};
}
