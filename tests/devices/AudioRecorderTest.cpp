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
    QStringList files() const { return QDir(m_home.runtimePath()).entryList({u"?*.?*"_s}); }
    std::string start()
    {
        return outcome([this] {
            m_recorder.keep(m_recorder.start(m_recorder.microphoneName(),
                                             m_recorder.requestPermission()->value()));
            return QString();
        });
    }
    QString stop() { return m_recorder.stop()->finish().fileName(); }

    TemporaryHome m_home;
    FakeAudioSystem m_system;
    AudioRecorder m_recorder{m_system};
};

TEST_F(AudioRecorderTest, RecordsIntoANewFileEachTimeAndSweepsWhatACrashLeft)
{
    QStringList others{u"local.wrenfold.lock"_s,
                       u"wrenfold-0d7a3f52-11aa-4c3e-9a60-0123456789ab.wav"_s,
                       u"wrenfold-notes.wav"_s};
    for (const auto &name : others)
        QFile(m_home.runtimePath(name)).open(QIODevice::WriteOnly);
    for (const qsizetype count : {4, 5}) {
        start();
        const auto name = stop();
        EXPECT_TRUE(name.contains(
            QRegularExpression(u"^wrenfold-[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\\.wav$"_s)));
        EXPECT_EQ(QFileInfo(m_home.runtimePath(name)).size(), 44);
        EXPECT_EQ(files().size(), count);
    }
    EXPECT_THROW(static_cast<void>(m_recorder.stop()), HushwireError);
    start();
    m_recorder.discard();
    EXPECT_EQ(files().size(), 5);
    QDir().mkdir(m_home.runtimePath(u"wrenfold-0D7A3F52-11AA-4C3E-9A60-0123456789AB.wav"_s));
    AudioRecorder::sweepLeftovers();
    EXPECT_EQ(files().size(), others.size() + 1);
}

TEST_F(AudioRecorderTest, RefusedRecordingIsLoggedAndLeavesNothing)
{
    using Permission = MicrophonePermission;
    const std::tuple<bool, Permission, QString, QString> rows[] = {
        {false, Permission::Denied, {}, u"false started=false %1denied input=默认麦克风"_s},
        {true, Permission::Restricted, u"%1"_s, u"true started=false %1restricted input=%1"_s},
        {true, Permission::NotDetermined, u"U"_s, u"true started=false %1notDetermined input=U"_s}};
    for (const auto &[canPrepare, permission, inputName, logged] : rows) {
        m_system.canPrepare = canPrepare;
        m_system.canRecord = !canPrepare;
        m_system.permission = permission;
        m_system.inputName = inputName;
        EXPECT_EQ(start(),
                  "recordingFailed: 录音没有启动成功。请检查系统麦克风权限和输入设备，"
                  "然后退出 Wrenfold 后重新打开再试。");
        const auto line = u"INFO AVAudioRecorder start result. prepared="_s + logged;
        const auto writable = u"tempDirectoryWritable=true permission="_s;
        EXPECT_EQ(loggedLines(m_home).last(),
                  QString(line).replace(line.indexOf(u"%1"_s), 2, writable));
        EXPECT_EQ(files(), QStringList());
        EXPECT_THROW(static_cast<void>(m_recorder.stop()), HushwireError);
    }
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
}
