// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ProcessingTimings.h"

#include "RecordingFormat.h"

using namespace Qt::StringLiterals;

namespace {

qint64 millisecondsSince(ProcessingTimings::Clock::time_point start)
{
    const auto elapsed = ProcessingTimings::Clock::now() - start;
    return std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count();
}

// The speech in a recording of this size.
double secondsOf(quint64 audioBytes)
{
    using namespace RecordingFormat;
    return audioBytes > headerBytes ? static_cast<double>(audioBytes - headerBytes) / bytesPerSecond
                                    : 0.0;
}

} // namespace

ProcessingTimings::ProcessingTimings(quint64 audioBytes)
    : m_audioBytes(audioBytes)
{}

QString ProcessingTimings::line(std::optional<ProcessingFailureStage> failedStage) const
{
    auto text = u"Processing timing. audioSeconds=%1 audioBytes=%2 asrMs=%3 polishMs=%4 "
                "pasteMs=%5 totalMs=%6"_s.arg(QString::number(secondsOf(m_audioBytes), 'f', 2))
                    .arg(m_audioBytes)
                    .arg(m_asrMs)
                    .arg(m_polishMs)
                    .arg(m_pasteMs)
                    .arg(millisecondsSince(m_start));
    if (failedStage)
        text += " failedStage="_L1 + logName(*failedStage);
    return text;
}

void ProcessingTimings::keep(ProcessingFailureStage stage, Clock::time_point start)
{
    const auto elapsed = millisecondsSince(start);
    switch (stage) {
    case ProcessingFailureStage::SpeechRecognition:
        m_asrMs = elapsed;
        break;
    case ProcessingFailureStage::TextPolishing:
        m_polishMs = elapsed;
        break;
    case ProcessingFailureStage::AutoPaste:
        m_pasteMs = elapsed;
        break;
    }
}
