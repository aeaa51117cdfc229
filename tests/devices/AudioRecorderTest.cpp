// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AudioRecorder.h"
#include "FakeAudioSystem.h"
#include "LoggedLines.h"
#include "Outcome.h"

#include <QDir>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class AudioRecorderTest : public testing::Test
{
protected:
    QStringList files() const
    {
        return QDir(m_home.runtimePath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    std::string start()
    {
        return outcome([this] {
            m_recorder.keep(m_recorder.start(m_recorder.microphoneName()));
            return QString();
        });
    }
    std::string stop()
    {
        return outcome([this] { return m_recorder.stop()->finish().fileName(); });
    }

    TemporaryHome m_home;
    FakeAudioSystem m_system;
    AudioRecorder m_recorder{m_system};
};

TEST_F(AudioRecorderTest, RecordsIntoANewPrivateFileEachTime)
{
    start();
    const auto first = stop();
    start();
    EXPECT_NE(stop(), first);
    EXPECT_EQ(stop(), "recordingFailed: 当前没有正在进行的录音。");
    for (const auto &name : files()) {
        EXPECT_TRUE(name.contains(
            QRegularExpression(u"^wrenfold-[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\\.wav$"_s)));
        EXPECT_EQ(QFileInfo(m_home.runtimePath(name)).size(), 44);
    }
    EXPECT_EQ(files().size(), 2);
    start();
    EXPECT_EQ(files().size(), 3);
    m_recorder.discard();
    EXPECT_EQ(files().size(), 2);
    EXPECT_EQ(loggedLines(m_home).last(),
              u"INFO AVAudioRecorder start result. prepared=true started=true"
              " tempDirectoryWritable=true permission=authorized input=Fake Microphone"_s);
}

TEST_F(AudioRecorderTest, RefusedRecordingIsLoggedAndLeavesNothing)
{
    using Permission = MicrophonePermission;
    const auto line = u"INFO AVAudioRecorder start result. prepared=%1 started=false "
                      "tempDirectoryWritable=true permission=%2"_s;
    const std::tuple<bool, Permission, QString, QString> rows[] = {
        {false, Permission::Denied, {}, line.arg(u"false"_s, u"denied input=默认麦克风"_s)},
        {true, Permission::Restricted, u"%1"_s, line.arg(u"true"_s, u"restricted input=%1"_s)},
        {true, Permission::NotDetermined, u"U"_s, line.arg(u"true"_s, u"notDetermined input=U"_s)},
    };
    for (const auto &[canPrepare, permission, inputName, logged] : rows) {
        m_system.canPrepare = canPrepare;
        m_system.canRecord = !canPrepare;
        m_system.permission = permission;
        m_system.inputName = inputName;
        EXPECT_FALSE(m_recorder.requestPermission());
        EXPECT_EQ(start(),
                  "recordingFailed: 录音没有启动成功。请检查系统麦克风权限和输入设备，"
                  "然后退出 Wrenfold 后重新打开再试。");
        EXPECT_EQ(loggedLines(m_home).last(), logged);
        EXPECT_EQ(files(), QStringList());
        EXPECT_EQ(stop(), "recordingFailed: 当前没有正在进行的录音。");
    }
    m_system.canCreate = false;
    EXPECT_THROW(start(), LocalizedError);
    EXPECT_EQ(loggedLines(m_home).size(), 3);
}

TEST_F(AudioRecorderTest, LevelIsLinearInDecibelsWithAVisibleMinimum)
{
    EXPECT_EQ(m_recorder.normalizedPowerLevel(), 0.18);
    start();
    const std::pair<float, double> cases[] = {
        {-160.0F, 0.18}, {-60.0F, 0.18}, {-30.0F, 0.59}, {-15.0F, 0.795}, {0.0F, 1}, {3.0F, 1}};
    for (const auto &[power, level] : cases) {
        m_system.powerDb = power;
        EXPECT_NEAR(m_recorder.normalizedPowerLevel(), level, 1e-9) << power;
    }
    m_recorder.discard();
    EXPECT_EQ(m_recorder.normalizedPowerLevel(), 0.18);
}

TEST_F(AudioRecorderTest, SweepsOnlyRecordingsOfItsOwn)
{
    start();
    const auto recording = m_recorder.stop()->finish().fileName();
    const QStringList others{u"local.wrenfold.lock"_s,
                             u"wrenfold-notes.wav"_s,
                             u"wrenfold-0d7a3f52-11aa-4c3e-9a60-0123456789ab.wav"_s,
                             recording + u".part"_s};
    for (const auto &name : others)
        QFile(m_home.runtimePath(name)).open(QIODevice::WriteOnly);
    QDir().mkdir(m_home.runtimePath(u"wrenfold-0D7A3F52-11AA-4C3E-9A60-0123456789AB.wav"_s));
    AudioRecorder::sweepLeftovers();
    EXPECT_EQ(files().size(), others.size() + 1);
    EXPECT_FALSE(files().contains(recording));
}
