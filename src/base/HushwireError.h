// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "LocalizedError.h"

// A failure with a finished message in the user's language. The thrower composes the text; nothing
// shortens it on its way to an alert or the log.
class HushwireError final : public LocalizedError
{
public:
    enum class Kind {
        ConfigMissing, // a setting needed for a service call is missing or malformed
        PermissionMissing, // a permission of the system is not granted
        RecordingFailed, // the recording could not be started or stopped
        ServiceFailed, // a service answered with an HTTP or service-level error
        ResponseFailed, // a service answered successfully but without usable text
        PasteFailed, // the clipboard write or the synthetic paste failed
    };

    [[nodiscard]] static HushwireError configMissing(const QString &message);
    [[nodiscard]] static HushwireError permissionMissing(const QString &message);
    [[nodiscard]] static HushwireError recordingFailed(const QString &message);
    [[nodiscard]] static HushwireError serviceFailed(const QString &message);
    [[nodiscard]] static HushwireError responseFailed(const QString &message);
    [[nodiscard]] static HushwireError pasteFailed(const QString &message);

    [[nodiscard]] Kind kind() const { return m_kind; }

private:
    HushwireError(Kind kind, const QString &message);

    Kind m_kind;
};
