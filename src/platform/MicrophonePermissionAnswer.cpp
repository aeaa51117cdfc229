// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MicrophonePermissionAnswer.h"

void MicrophonePermissionAnswer::give(MicrophonePermission permission)
{
    std::call_once(m_isGiven, [&] { m_promise.set_value(permission); });
}

MicrophonePermission MicrophonePermissionAnswer::value(std::chrono::milliseconds limit) const
{
    return m_future.wait_for(limit) == std::future_status::ready
        ? m_future.get()
        : MicrophonePermission::NotDetermined;
}
