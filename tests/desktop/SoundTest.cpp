// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "LocalizedError.h"
#include "Process.h"
#include "PulseAudioSystem.h"
#include "WaitUntil.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
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

// A finished recording, whose size must be right and which other tools must read the same way.
Samples recordedSamples(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const auto content = file.readAll();
    EXPECT_EQ(qFromLittleEndian<quint32>(content.constData() + 4), content.size() - 8);
    const auto raw = runCommand(u"sox %1 -t raw -"_s.arg(path));
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

// Plays a sine of half the full scale into the microphone for so many seconds.
void startTone(QProcess &tone, int hertz, int seconds)
{
    const auto play = u"sox -qn -r 48000 -c 2 -b 16 -t wav - synth %1 sine %2 vol 0.5 | paplay"_s;
    tone.start(u"sh"_s, {u"-c"_s, play.arg(seconds).arg(hertz)});
}

void signalServer(int signal)
{
    kill(qEnvironmentVariableIntValue("WRENFOLD_DESKTOP_SOUND_PID"), signal);
}

} // namespace

class SoundTest : public testing::Test
{
protected:
    // A recording that has captured so many milliseconds; null when it was refused.
    std::unique_ptr<RecordingEngine> startRecording(qint64 milliseconds = 0)
    {
        QFile::remove(m_path);
        auto engine = m_system.createRecording(m_path);
        if (!engine->prepareToRecord() || !engine->record())
            return nullptr;
        EXPECT_TRUE(waitUntil([&] { return milliseconds == 0 || hasGrownTo(milliseconds); }));
        return engine;
    }
    // Ends a recording: at once on the calling thread, and within so long in all.
    static void finish(RecordingEngine &engine, qint64 limit = 200)
    {
        EXPECT_LE(millisecondsOf([&] { engine.stop(); }), 50);
        EXPECT_LE(millisecondsOf([&] { engine.finish(); }), limit);
    }
    bool hasGrownTo(qint64 milliseconds) const
    {
        return QFileInfo(m_path).size() >= 44 + milliseconds * samplesPerMs * 2;
    }

    QString m_path = qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/recording.wav"_s;
    PulseAudioSystem m_system{&std::make_shared<MicrophonePermissionAnswer>};
};

TEST_F(SoundTest, AToneArrivesWholeAtItsPitchAndLevelAndTheMeterFollowsIt)
{
    EXPECT_EQ(m_system.defaultInputName(), u"测试麦克风"_s);
    const auto engine = startRecording(200);
    ASSERT_TRUE(engine);
    EXPECT_EQ(engine->condition(), RecordingCondition::Capturing);
    EXPECT_LT(engine->averagePowerDb(), -90);
    BackgroundProcess tone;
    startTone(tone, 1000, 2);
    EXPECT_TRUE(waitUntil([&] { return std::abs(engine->averagePowerDb() - toneDb) < 0.5F; }));
    EXPECT_TRUE(waitUntil([&] { return tone.state() == QProcess::NotRunning; }));
    EXPECT_TRUE(waitUntil([&] { return engine->averagePowerDb() < -90; }));
    finish(*engine);
    const auto samples = recordedSamples(m_path);
    const auto isLoud = [](std::int16_t sample) { return std::abs(sample) > 1000; };
    const auto first = std::find_if(samples.begin(), samples.end(), isLoud);
    const auto last = std::find_if(samples.rbegin(), samples.rend(), isLoud).base();
    const std::span heard(first, last);
    EXPECT_NEAR(static_cast<double>(heard.size()) / samplesPerMs, 2000, 5);
    int crossings = 0;
    for (std::size_t i = 1; i < heard.size(); ++i)
        crossings += (heard[i - 1] < 0) != (heard[i] < 0);
    EXPECT_NEAR(crossings / 4.0, 1000, 1); // two a period, in two seconds
    EXPECT_NEAR(levelDb(heard), toneDb, 0.5);
}

TEST_F(SoundTest, RecordsAllThatIsHeardBetweenStartAndStop)
{
    BackgroundProcess tone;
    startTone(tone, 440, 15);
    auto engine = startRecording();
    ASSERT_TRUE(engine);
    ASSERT_TRUE(waitUntil([&] { return engine->averagePowerDb() > toneDb - 0.5F; }));
    for (int length = 300; length < 2000; length += 317) {
        engine = startRecording(1);
        ASSERT_TRUE(engine);
        const auto early = (QFileInfo(m_path).size() - 44) / 2;
        QElapsedTimer clock;
        clock.start();
        ASSERT_TRUE(waitUntil([&] { return hasGrownTo(length); }));
        const auto spoken = early + clock.nsecsElapsed() * samplesPerMs / 1'000'000;
        finish(*engine);
        const auto samples = recordedSamples(m_path);
        // The clock is read a moment after the size it belongs to: half a millisecond is noise.
        EXPECT_GE(samples.size() + samplesPerMs, static_cast<std::size_t>(spoken));
        for (std::size_t at = 0; at + 400 <= samples.size(); at += 400)
            ASSERT_NEAR(levelDb(std::span(samples).subspan(at, 400)), toneDb, 0.5) << at;
    }
}

TEST_F(SoundTest, ALostServerOrMicrophoneLeavesTheRecordingAndWhatIsPlayedIsNoMicrophone)
{
    const auto expectLoss = [this](const std::function<void()> &lose) {
        const auto engine = startRecording(500);
        ASSERT_TRUE(engine);
        lose();
        EXPECT_TRUE(
            waitUntil([&] { return engine->condition() == RecordingCondition::DeviceLost; }));
        EXPECT_EQ(engine->averagePowerDb(), -160);
        finish(*engine, 50);
        EXPECT_GE(recordedSamples(m_path).size(), 500 * samplesPerMs);
        EXPECT_TRUE(waitUntil([&] { return m_system.defaultInputName().isEmpty(); }));
        EXPECT_FALSE(startRecording());
    };
    expectLoss([] { signalServer(SIGKILL); });
    BackgroundProcess server;
    server.startCommand(u"setpriv --pdeathsig KILL "_s
                        + qEnvironmentVariable("WRENFOLD_DESKTOP_SOUND_SERVER"));
    EXPECT_TRUE(waitUntil([&] { return m_system.defaultInputName() == u"测试麦克风"_s; }));
    expectLoss([] { runCommand(u"pactl unload-module module-remap-source"_s); });
    EXPECT_TRUE(runCommand(u"pactl list short sources"_s).output.contains("speech.monitor"));
}

TEST_F(SoundTest, SilentServerDelaysNothingForLong)
{
    auto engine = startRecording(500);
    ASSERT_TRUE(engine);
    signalServer(SIGSTOP);
    finish(*engine, 250);
    EXPECT_GE(recordedSamples(m_path).size(), 500 * samplesPerMs);
    PulseAudioSystem another({});
    for (auto *system : {&another, &m_system}) {
        const auto refused = system->createRecording(m_path + u'2');
        EXPECT_LT(millisecondsOf([&] { EXPECT_FALSE(refused->prepareToRecord()); }), 2500);
        QFile::remove(m_path + u'2');
    }
    signalServer(SIGCONT);
    EXPECT_TRUE(startRecording(100));
}

TEST_F(SoundTest, FullDiskKeepsWhatWasWritten)
{
    const QString disk = QFileInfo(m_path).path();
    ASSERT_FALSE(m_system.defaultInputName().isEmpty()); // connected: the mount hides the server
    if (runCommand(u"mount -t tmpfs -o size=64k tmpfs "_s + disk).exitCode != 0)
        GTEST_SKIP() << "mounting is not permitted here";
    const auto engine = startRecording();
    EXPECT_TRUE(engine && waitUntil([&] { return QFileInfo(m_path).size() >= 65536; }));
    EXPECT_TRUE(waitUntil([&] { return engine->condition() == RecordingCondition::StorageFull; }));
    EXPECT_THROW(static_cast<void>(m_system.createRecording(m_path + u'2')), LocalizedError);
    EXPECT_FALSE(QFile::exists(m_path + u'2'));
    finish(*engine);
    EXPECT_EQ(recordedSamples(m_path).size(), (65536 - 44) / 2);
    EXPECT_EQ(runCommand(u"umount "_s + disk).exitCode, 0);
}
