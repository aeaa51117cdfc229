// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PulseRecordingEngine.h"

#include "PulseConnection.h"
#include "RecordingFormat.h"

#include <algorithm>
#include <array>
#include <limits>

#include <pulse/pulseaudio.h>

using namespace std::chrono_literals;

namespace {

constexpr auto startLimit = 1s;
constexpr auto tailLimit = 150ms;
// Of a stream's time, where the device delays: 5 ms were seen.
constexpr auto timeError = 10ms;
constexpr std::uint32_t fragmentBytes = RecordingFormat::bytesPerSecond / 50;

pa_buffer_attr fragments()
{
    constexpr auto serverDefault = std::numeric_limits<std::uint32_t>::max();
    return {.maxlength = serverDefault,
            .tlength = serverDefault,
            .prebuf = serverDefault,
            .minreq = serverDefault,
            .fragsize = fragmentBytes};
}

pa_stream *newStream(pa_context *context)
{
    constexpr pa_sample_spec format{PA_SAMPLE_S16LE, RecordingFormat::sampleRate, 1};
    pa_proplist *properties = pa_proplist_new();
    // PipeWire else adds both sides of a stereo microphone up to 3 dB more than either has.
    pa_proplist_sets(properties, "channelmix.normalize", "true");
    pa_stream *stream =
        pa_stream_new_with_proplist(context, "Dictation", &format, nullptr, properties);
    pa_proplist_free(properties);
    return stream;
}

} // namespace

PulseRecordingEngine::PulseRecordingEngine(PulseConnection &connection, const QString &path)
    : m_connection(connection)
    , m_file(path)
{}

PulseRecordingEngine::~PulseRecordingEngine()
{
    releaseStream();
}

bool PulseRecordingEngine::prepareToRecord()
{
    const auto source = m_connection.defaultSource();
    m_sourceName = source ? source->name : QByteArray();
    return source.has_value();
}

bool PulseRecordingEngine::record()
{
    if (!connectStream())
        return false;
    std::unique_lock guard(m_mutex);
    m_changed.wait_for(guard, startLimit, [this] { return m_state != State::Connecting; });
    return m_state == State::Recording;
}

void PulseRecordingEngine::stop()
{
    m_wantedBytes = bytesUntilNow();
    m_stoppedAt = Clock::now();
}

void PulseRecordingEngine::finish()
{
    {
        std::unique_lock guard(m_mutex);
        m_changed.wait_until(guard, m_stoppedAt + tailLimit, [this] {
            return m_state != State::Recording || m_capturedBytes >= m_wantedBytes;
        });
    }
    releaseStream();
    const std::lock_guard guard(m_mutex);
    m_file.finish();
}

bool PulseRecordingEngine::connectStream()
{
    // A stream that moved to another device would go on with somebody else's sound.
    constexpr auto flags = static_cast<pa_stream_flags_t>(
        PA_STREAM_ADJUST_LATENCY | PA_STREAM_DONT_MOVE | PA_STREAM_AUTO_TIMING_UPDATE
        | PA_STREAM_INTERPOLATE_TIMING);
    const auto follow = [](pa_stream *stream, void *self) {
        static_cast<PulseRecordingEngine *>(self)->followStreamState(stream);
    };
    const auto read = [](pa_stream *stream, std::size_t, void *self) {
        static_cast<PulseRecordingEngine *>(self)->readFragments(stream);
    };
    {
        // What was set up so far is the sound thread's from here on.
        const std::lock_guard guard(m_mutex);
        m_state = State::Connecting;
    }
    const PulseConnection::Lock lock(m_connection);
    m_stream = newStream(m_connection.context());
    if (!m_stream)
        return false;
    pa_stream_set_state_callback(m_stream, follow, this);
    pa_stream_set_read_callback(m_stream, read, this);
    const auto buffer = fragments();
    return pa_stream_connect_record(m_stream, m_sourceName.constData(), &buffer, flags) >= 0;
}

void PulseRecordingEngine::followStreamState(pa_stream *stream)
{
    const auto state = pa_stream_get_state(stream);
    if (state == PA_STREAM_CREATING)
        return;
    const std::lock_guard guard(m_mutex);
    m_state = state == PA_STREAM_READY ? State::Recording : State::Ended;
    if (m_state == State::Ended) {
        m_averagePowerDb = LevelMeter::silenceDb;
        m_condition = RecordingCondition::DeviceLost;
    }
    m_changed.notify_all();
}

void PulseRecordingEngine::readFragments(pa_stream *stream)
{
    const std::lock_guard guard(m_mutex);
    const void *data = nullptr;
    std::size_t size = 0;
    while (pa_stream_peek(stream, &data, &size) >= 0 && size > 0) {
        const auto count = size / sizeof(std::int16_t);
        if (data) {
            keep({static_cast<const std::int16_t *>(data), count});
        } else { // a hole in the stream is time that passed
            static constexpr std::array<std::int16_t, RecordingFormat::sampleRate / 10> silence{};
            for (auto left = count; left > 0; left -= std::min(left, silence.size()))
                keep({silence.data(), std::min(left, silence.size())});
        }
        pa_stream_drop(stream);
    }
    noteLead();
    if (m_file.isFull())
        m_condition = RecordingCondition::StorageFull;
    m_averagePowerDb = m_meter.averagePowerDb();
    m_changed.notify_all();
}

void PulseRecordingEngine::keep(std::span<const std::int16_t> samples)
{
    m_file.append(samples);
    m_meter.add(samples);
    m_capturedBytes += samples.size_bytes();
}

void PulseRecordingEngine::noteLead()
{
    constexpr auto longestDrift = 20us; // of two clocks within a fragment
    const auto captured =
        std::chrono::microseconds(m_capturedBytes * 1'000'000 / RecordingFormat::bytesPerSecond);
    const auto lead = captured - (Clock::now() - m_startedAt);
    m_lead = std::max(m_lead.value_or(lead) - longestDrift, lead);
}

// How much of the stream has been spoken by now; what the server still holds of it comes later. The
// stream's own time counts what the device delays, but lags where there is nothing to delay: there
// what came soonest tells better. Without a time to go by, more than can come.
std::uint64_t PulseRecordingEngine::bytesUntilNow()
{
    const PulseConnection::Lock lock(m_connection);
    pa_usec_t spoken = 0;
    if (!m_stream || pa_stream_get_time(m_stream, &spoken) < 0)
        return std::numeric_limits<std::uint64_t>::max();
    const auto bytes = [](auto duration) {
        const auto time = std::chrono::duration_cast<std::chrono::microseconds>(duration).count();
        return static_cast<std::uint64_t>(std::max<std::int64_t>(time, 0))
            * RecordingFormat::bytesPerSecond / 1'000'000;
    };
    const std::lock_guard guard(m_mutex);
    const auto byTheClock = m_lead ? Clock::now() - m_startedAt + *m_lead : Clock::duration(0);
    return std::max(bytes(std::chrono::microseconds(spoken) + timeError), bytes(byTheClock));
}

void PulseRecordingEngine::releaseStream()
{
    if (!m_stream)
        return;
    const PulseConnection::Lock lock(m_connection);
    pa_stream_set_state_callback(m_stream, nullptr, nullptr);
    pa_stream_set_read_callback(m_stream, nullptr, nullptr);
    pa_stream_disconnect(m_stream);
    pa_stream_unref(m_stream);
    m_stream = nullptr;
}
