// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AudioSystem.h"
#include "LevelMeter.h"
#include "WavFile.h"

#include <QByteArray>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>

class PulseConnection;
struct pa_stream;

// Records the default source of the sound server. The sound thread writes each fragment of 20 ms
// to the file as it comes.
class PulseRecordingEngine final : public RecordingEngine
{
public:
    // Creates the file; throws LocalizedError when that fails.
    PulseRecordingEngine(PulseConnection &connection, const QString &path);
    ~PulseRecordingEngine() override;

    bool prepareToRecord() override;
    bool record() override;
    void stop() override;
    void finish() override;
    [[nodiscard]] RecordingCondition condition() const override { return m_condition; }
    [[nodiscard]] float averagePowerDb() const override { return m_averagePowerDb; }

private:
    using Clock = std::chrono::steady_clock;

    enum class State {
        Connecting,
        Recording,
        Ended, // refused, or lost later: the server or the device is gone
    };

    bool connectStream();
    void followStreamState(pa_stream *stream);
    void readFragments(pa_stream *stream);
    void keep(std::span<const std::int16_t> samples);
    void noteLead();
    [[nodiscard]] std::uint64_t bytesUntilNow();
    void releaseStream();

    PulseConnection &m_connection;
    QByteArray m_sourceName;
    pa_stream *m_stream = nullptr;
    std::atomic<float> m_averagePowerDb = LevelMeter::silenceDb;
    std::atomic<RecordingCondition> m_condition = RecordingCondition::Capturing;
    std::uint64_t m_wantedBytes = 0; // captured until the stop
    Clock::time_point m_stoppedAt;
    // Guards what follows, which the sound thread uses too.
    std::mutex m_mutex;
    std::condition_variable m_changed;
    State m_state = State::Connecting;
    WavFile m_file;
    LevelMeter m_meter;
    std::uint64_t m_capturedBytes = 0;
    // How far what was captured has been ahead of the clock since the recording's beginning: the
    // most of late, since the device's clock is not ours.
    const Clock::time_point m_startedAt = Clock::now();
    std::optional<Clock::duration> m_lead;
};
