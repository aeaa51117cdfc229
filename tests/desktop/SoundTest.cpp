// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "LocalizedError.h"
#include "Process.h"
#include "PulseAudioSystem.h"
#include "WaitUntil.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QtEndian>

#include <cmath>
#include <csignal>
#include <gtest/gtest.h>
#include <span>

using namespace Qt::StringLiterals;

namespace {

constexpr float toneDb = -9.03F; // a sine of half the full scale
constexpr int samplesPerMs = 16;

using Samples = std::vector<std::int16_t>;

// A finished recording, whose sizes must be right and which other tools must read the same way.
Samples recordedSamples(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const auto content = file.readAll();
    EXPECT_EQ(qFromLittleEndian<quint32>(content.constData() + 4), content.size() - 8);
    EXPECT_EQ(qFromLittleEndian<quint32>(content.constData() + 40), content.size() - 44);
    const auto format = runProcess(u"soxi"_s, {path});
    for (const auto *line :
         {"Channels       : 1\n", "Sample Rate    : 16000\n", "Signed Integer PCM\n"})
        EXPECT_TRUE(format.output.contains(line)) << format.output.constData();
    const auto raw = runProcess(u"sox"_s, {path, u"-t"_s, u"raw"_s, u"-"_s});
    EXPECT_EQ(raw.errors, QByteArray());
    EXPECT_EQ(raw.output, content.sliced(44));
    Samples samples(static_cast<std::size_t>(raw.output.size()) / 2);
    memcpy(samples.data(), raw.output.constData(), samples.size() * 2);
    return samples;
}

double levelDb(std::span<const std::int16_t> samples)
{
    double sum = 0;
    for (const double sample : samples)
        sum += sample * sample;
    return 10 * std::log10(sum / static_cast<double>(samples.size()) / (32768.0 * 32768.0));
}

double frequency(std::span<const std::int16_t> samples)
{
    int crossings = 0;
    for (std::size_t i = 1; i < samples.size(); ++i)
        crossings += (samples[i - 1] < 0) != (samples[i] < 0);
    return crossings / 2.0 / (static_cast<double>(samples.size()) / 16000.0);
}

QStringList toneArguments(int hertz, int seconds)
{
    return {u"-c"_s,
            u"sox -n -r 48000 -c 2 -b 16 -t wav - synth %1 sine %2 vol 0.5 2>/dev/null |"
            " paplay"_s.arg(seconds)
                .arg(hertz)};
}

void signalServer(int signal)
{
    kill(qEnvironmentVariableIntValue("WRENFOLD_DESKTOP_SOUND_PID"), signal);
}

} // namespace

class SoundTest : public testing::Test
{
protected:
    // A recording that has begun to capture; null when it was refused.
    std::unique_ptr<RecordingEngine> startRecording()
    {
        QFile::remove(m_path);
        auto engine = m_system.createRecording(m_path);
        return engine->prepareToRecord() && engine->record() ? std::move(engine) : nullptr;
    }
    bool hasGrownTo(qint64 milliseconds) const
    {
        return QFileInfo(m_path).size() >= 44 + milliseconds * samplesPerMs * 2;
    }
    // Ends a recording that must be finished by then.
    void stopWithin(std::chrono::milliseconds limit, RecordingEngine &engine) const
    {
        QElapsedTimer clock;
        clock.start();
        engine.stop();
        EXPECT_LE(clock.elapsed(), limit.count());
    }

    QString m_path = qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/recording.wav"_s;
    PulseAudioSystem m_system{[] { return MicrophonePermission::Authorized; }};
};

class ToneTest : public SoundTest, public testing::WithParamInterface<int>
{};

TEST_P(ToneTest, ArrivesWholeAtItsPitchAndLevel)
{
    const auto engine = startRecording();
    ASSERT_TRUE(engine);
    ASSERT_EQ(runProcess(u"sh"_s, toneArguments(GetParam(), 2)).exitCode, 0);
    engine->stop();
    const auto samples = recordedSamples(m_path);
    const auto isLoud = [](std::int16_t sample) { return std::abs(sample) > 1000; };
    const auto first = std::find_if(samples.begin(), samples.end(), isLoud);
    const auto last = std::find_if(samples.rbegin(), samples.rend(), isLoud).base();
    const std::span tone(first, last);
    EXPECT_NEAR(static_cast<double>(tone.size()) / samplesPerMs, 2000, 5);
    EXPECT_NEAR(frequency(tone), GetParam(), 1);
    EXPECT_NEAR(levelDb(tone), toneDb, 0.5);
}

INSTANTIATE_TEST_SUITE_P(Pitches, ToneTest, testing::Values(440, 1000));

TEST_F(SoundTest, RecordsAllThatIsHeardBetweenStartAndStop)
{
    QProcess tone;
    tone.start(u"sh"_s, toneArguments(440, 15));
    auto engine = startRecording();
    ASSERT_TRUE(engine);
    ASSERT_TRUE(waitUntil([&] { return engine->averagePowerDb() > toneDb - 0.5F; }));
    for (int length = 300; length < 2000; length += 317) {
        engine = startRecording();
        ASSERT_TRUE(engine);
        ASSERT_TRUE(waitUntil([&] { return hasGrownTo(1); }));
        const auto early = (QFileInfo(m_path).size() - 44) / 2;
        QElapsedTimer clock;
        clock.start();
        ASSERT_TRUE(waitUntil([&] { return hasGrownTo(length); }));
        const auto spoken = early + clock.nsecsElapsed() * samplesPerMs / 1'000'000;
        stopWithin(std::chrono::milliseconds(200), *engine);
        const auto samples = recordedSamples(m_path);
        EXPECT_GE(samples.size(), static_cast<std::size_t>(spoken));
        for (std::size_t at = 0; at + 400 <= samples.size(); at += 400)
            ASSERT_NEAR(levelDb(std::span(samples).subspan(at, 400)), toneDb, 0.5) << at;
    }
    tone.kill();
    tone.waitForFinished();
}

TEST_F(SoundTest, MeterFollowsTheVoice)
{
    EXPECT_EQ(m_system.defaultInputName(), u"测试麦克风"_s);
    const auto engine = startRecording();
    ASSERT_TRUE(engine && waitUntil([&] { return hasGrownTo(200); }));
    EXPECT_LT(engine->averagePowerDb(), -90);
    QProcess tone;
    tone.start(u"sh"_s, toneArguments(440, 1));
    EXPECT_TRUE(waitUntil([&] { return std::abs(engine->averagePowerDb() - toneDb) < 0.5F; }));
    EXPECT_TRUE(waitUntil([&] { return engine->averagePowerDb() < -90; }));
    EXPECT_TRUE(waitUntil([&] { return tone.state() == QProcess::NotRunning; }));
}

TEST_F(SoundTest, UnpluggedMicrophoneLeavesTheRecordingAndTheNextStillWorks)
{
    auto engine = startRecording();
    ASSERT_TRUE(engine && waitUntil([&] { return hasGrownTo(500); }));
    ASSERT_EQ(runProcess(u"pactl"_s, {u"unload-module"_s, u"module-remap-source"_s}).exitCode, 0);
    stopWithin(std::chrono::milliseconds(200), *engine);
    EXPECT_GE(recordedSamples(m_path).size(), 500 * samplesPerMs);
    engine = startRecording();
    EXPECT_TRUE(engine) << "of the loudspeaker, the only source that is left";
    ASSERT_EQ(runProcess(u"pactl"_s, {u"unload-module"_s, u"module-null-sink"_s}).exitCode, 0);
    EXPECT_TRUE(waitUntil([&] { return m_system.defaultInputName().isEmpty(); }));
    EXPECT_FALSE(startRecording());
}

TEST_F(SoundTest, KilledServerLeavesTheRecordingAndOneThatComesBackIsUsed)
{
    auto engine = startRecording();
    ASSERT_TRUE(engine && waitUntil([&] { return hasGrownTo(500); }));
    signalServer(SIGKILL);
    EXPECT_TRUE(waitUntil([&] { return m_system.defaultInputName().isEmpty(); }));
    EXPECT_EQ(engine->averagePowerDb(), -160);
    stopWithin(std::chrono::milliseconds(20), *engine);
    EXPECT_GE(recordedSamples(m_path).size(), 500 * samplesPerMs);
    EXPECT_FALSE(startRecording());

    QProcess server;
    server.start(
        u"setpriv"_s,
        {u"--pdeathsig"_s, u"KILL"_s, qEnvironmentVariable("WRENFOLD_DESKTOP_SOUND_SERVER")});
    EXPECT_TRUE(waitUntil([&] { return m_system.defaultInputName() == u"测试麦克风"_s; }));
    engine = startRecording();
    EXPECT_TRUE(engine && waitUntil([&] { return hasGrownTo(100); }));
    server.kill();
    server.waitForFinished();
}

TEST_F(SoundTest, SilentServerDelaysNothingForLong)
{
    auto engine = startRecording();
    ASSERT_TRUE(engine && waitUntil([&] { return hasGrownTo(500); }));
    signalServer(SIGSTOP);
    stopWithin(std::chrono::milliseconds(250), *engine);
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(PulseAudioSystem({}).createRecording(m_path + u'2')->prepareToRecord());
    EXPECT_LT(clock.restart(), 2500);
    EXPECT_GE(recordedSamples(m_path).size(), 500 * samplesPerMs);
    clock.restart();
    EXPECT_FALSE(startRecording());
    EXPECT_LT(clock.elapsed(), 2500);
    signalServer(SIGCONT);
    engine = startRecording();
    EXPECT_TRUE(engine && waitUntil([&] { return hasGrownTo(100); }));
}

TEST_F(SoundTest, FullDiskKeepsWhatWasWritten)
{
    const QString disk = QFileInfo(m_path).path();
    const QStringList mount{u"-t"_s, u"tmpfs"_s, u"-o"_s, u"size=64k"_s, u"tmpfs"_s, disk};
    ASSERT_TRUE(m_system.defaultInputName()
                == u"测试麦克风"_s); // connected: the mount hides the server
    if (runProcess(u"mount"_s, mount).exitCode != 0)
        GTEST_SKIP() << "mounting is not permitted here";
    const auto engine = startRecording();
    EXPECT_TRUE(engine && waitUntil([&] { return QFileInfo(m_path).size() >= 65536; }));
    EXPECT_THROW(static_cast<void>(m_system.createRecording(m_path + u'2')), LocalizedError);
    EXPECT_FALSE(QFile::exists(m_path + u'2'));
    stopWithin(std::chrono::milliseconds(200), *engine);
    EXPECT_EQ(recordedSamples(m_path).size(), (65536 - 44) / 2);
    EXPECT_EQ(runProcess(u"umount"_s, {disk}).exitCode, 0);
}
