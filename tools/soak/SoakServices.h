// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ScriptedHttpServer.h"
#include "SoakPlan.h"

#include <atomic>

// Both services, which answer the dictation that runs, as well as its fault lets them.
class SoakServices final
{
public:
    // Writes a configuration that points here.
    void configure() const;
    // The dictation that everything from now on belongs to.
    void begin(const SoakStep &step);

    // Requests of this dictation, and those of another one.
    [[nodiscard]] int recognitions() const { return m_recognitions; }
    [[nodiscard]] int polishings() const { return m_polishings; }
    [[nodiscard]] int strays() const { return m_strays; }
    // Whether this dictation's text has been sent whole.
    [[nodiscard]] bool hasWritten() const { return m_hasWritten; }

private:
    [[nodiscard]] ScriptedAnswer answer(const RecordedRequest &request);
    [[nodiscard]] ScriptedAnswer recognition(const SoakStep &step);
    [[nodiscard]] ScriptedAnswer polishing(const SoakStep &step);

    mutable std::mutex m_mutex;
    SoakStep m_step; // guarded by m_mutex
    std::atomic<int> m_recognitions = 0;
    std::atomic<int> m_polishings = 0;
    std::atomic<int> m_strays = 0;
    std::atomic<bool> m_hasWritten = false;
    ScriptedHttpServer m_server{[this](const RecordedRequest &request) { return answer(request); }};
};
