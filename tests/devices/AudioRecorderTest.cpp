// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppLogger.h"
#include "AudioRecorder.h"
#include "FakeAudioSystem.h"
#include "HushwireError.h"
#include "TemporaryHome.h"

#include <QDir>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto recordingName =
    "^wrenfold-[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}\\.wav$"_L1;

QString recordingFailure(const std::function<void()> &operation)
{
    try {
        operation();
    } catch (const HushwireError &error) {
        EXPECT_EQ(error.kind(), HushwireError::Kind::RecordingFailed);
        return error.localizedDescription();
    }
    return u"no failure"_s;
}

} // namespace

class AudioRecorderTest : public testing::Test
{
protected:
    QStringList files() const
    {
        return QDir(m_home.runtimePath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    // The log's last line without its time stamp; empty when nothing was logged.
    QString lastLogLine() const
    {
        AppLogger::drain();
        const QString log = QString::fromUtf8(m_home.read(u".wrenfold/logs/wrenfold.log"_s));
        return log.trimmed().section(u'\n', -1).section(u"] "_s, 2);
    }

    TemporaryHome m_home;
    FakeAudioSystem m_system;
    AudioRecorder m_recorder{m_system};
};

TEST_F(AudioRecorderTest, RecordsIntoANewPrivateFileEachTime)
{
    const QUrl first = m_recorder.start();
    EXPECT_EQ(lastLogLine(),
              u"AVAudioRecorder start result. prepared=true started=true"
              " tempDirectoryWritable=true permission=authorized input=Fake Microphone"_s);
    EXPECT_EQ(m_recorder.stop(), first);
    EXPECT_EQ(m_system.recordingsInProgress, 0);
    const QUrl second = m_recorder.start();
    EXPECT_EQ(m_recorder.stop(), second);
    EXPECT_NE(first, second);
    for (const auto &url : {first, second}) {
        EXPECT_EQ(QFileInfo(url.toLocalFile()).path(), m_home.runtimePath());
        EXPECT_TRUE(QRegularExpression(recordingName).match(url.fileName()).hasMatch());
        EXPECT_EQ(QFileInfo(url.toLocalFile()).size(), 44);
    }
    EXPECT_EQ(recordingFailure([this] { m_recorder.stop(); }), u"当前没有正在进行的录音。"_s);
}

TEST_F(AudioRecorderTest, RefusedRecordingIsLoggedAndLeavesNothing)
{
    struct Case
    {
        bool canPrepare;
        bool canRecord;
        MicrophonePermission permission;
        const char16_t *inputName;
        const char16_t *line;
    };
    const Case cases[] = {
        {false,
         true,
         MicrophonePermission::Denied,
         u"",
         u"prepared=false started=false tempDirectoryWritable=true permission=denied"
         " input=默认麦克风"},
        {true,
         false,
         MicrophonePermission::Restricted,
         u"%1",
         u"prepared=true started=false tempDirectoryWritable=true permission=restricted input=%1"},
        {true,
         false,
         MicrophonePermission::NotDetermined,
         u"USB 麦克风",
         u"prepared=true started=false tempDirectoryWritable=true permission=notDetermined"
         " input=USB 麦克风"},
    };
    for (const auto &[canPrepare, canRecord, permission, inputName, line] : cases) {
        m_system.canPrepare = canPrepare;
        m_system.canRecord = canRecord;
        m_system.permission = permission;
        m_system.inputName = QString::fromUtf16(inputName);
        EXPECT_FALSE(m_recorder.requestPermission());
        EXPECT_EQ(recordingFailure([this] { m_recorder.start(); }),
                  u"录音没有启动成功。请检查系统麦克风权限和输入设备，然后退出 Wrenfold "
                  "后重新打开再试。"_s);
        EXPECT_EQ(lastLogLine(), u"AVAudioRecorder start result. "_s + QString::fromUtf16(line));
        EXPECT_EQ(files(), QStringList());
        EXPECT_EQ(recordingFailure([this] { m_recorder.stop(); }), u"当前没有正在进行的录音。"_s);
    }
}

TEST_F(AudioRecorderTest, UncreatableFileIsReportedAsItIsAndNotLogged)
{
    m_system.canCreate = false;
    try {
        m_recorder.start();
        ADD_FAILURE();
    } catch (const LocalizedError &error) {
        EXPECT_EQ(error.localizedDescription(), u"The file cannot be created."_s);
    }
    EXPECT_EQ(lastLogLine(), QString());
    EXPECT_EQ(m_recorder.normalizedPowerLevel(), 0.18);
}

TEST_F(AudioRecorderTest, LevelIsLinearInDecibelsWithAVisibleMinimum)
{
    EXPECT_EQ(m_recorder.normalizedPowerLevel(), 0.18);
    m_recorder.start();
    const std::pair<float, double> cases[] = {
        {-160.0F, 0.18}, {-60.0F, 0.18}, {-30.0F, 0.59}, {-15.0F, 0.795}, {0.0F, 1}, {3.0F, 1}};
    for (const auto &[power, level] : cases) {
        m_system.powerDb = power;
        EXPECT_NEAR(m_recorder.normalizedPowerLevel(), level, 1e-9) << power;
    }
    m_recorder.stop();
    EXPECT_EQ(m_recorder.normalizedPowerLevel(), 0.18);
}

TEST_F(AudioRecorderTest, SweepsOnlyRecordingsOfItsOwn)
{
    const QUrl recording = m_recorder.start();
    m_recorder.stop();
    const QStringList others{u"local.wrenfold.lock"_s,
                             u"wrenfold-notes.wav"_s,
                             u"wrenfold-0d7a3f52-11aa-4c3e-9a60-0123456789ab.wav"_s,
                             recording.fileName() + u".part"_s};
    for (const auto &name : others)
        QFile(m_home.runtimePath(name)).open(QIODevice::WriteOnly);
    QDir().mkdir(m_home.runtimePath(u"wrenfold-0D7A3F52-11AA-4C3E-9A60-0123456789AB.wav"_s));
    AudioRecorder::sweepLeftovers();
    EXPECT_EQ(files().size(), others.size() + 1);
    EXPECT_FALSE(files().contains(recording.fileName()));
}
