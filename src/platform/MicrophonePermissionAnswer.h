// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <future>
#include <mutex>

enum class MicrophonePermission {
    NotDetermined,
    Restricted,
    Denied,
    Authorized,
};

// The answer to one question whether the microphone may be used, which may come late. Any thread.
class MicrophonePermissionAnswer final
{
public:
    // The first answer counts.
    void give(MicrophonePermission permission);

    // Waits for the answer, at most `limit`; NotDetermined while there is none.
    [[nodiscard]] MicrophonePermission value(std::chrono::milliseconds limit = {}) const;
    // Waits for the answer as long as it takes.
    [[nodiscard]] MicrophonePermission wait() const { return m_future.get(); }

private:
    std::once_flag m_isGiven;
    std::promise<MicrophonePermission> m_promise;
    const std::shared_future<MicrophonePermission> m_future = m_promise.get_future().share();
};
