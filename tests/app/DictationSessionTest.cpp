// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppLogger.h"
#include "AudioRecorder.h"
#include "BackgroundTasks.h"
#include "DictationSession.h"
#include "FakeAudioSystem.h"
#include "FakeDictationHost.h"
#include "HistoryStore.h"
#include "HushwireError.h"
#include "TemporaryHome.h"
#include "VirtualMainQueue.h"
#include "VoiceOverlayController.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QRegularExpression>

#include <future>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Kind = VoiceOverlayMode::Kind;

namespace {

// A service call that blocks until the test lets it return or fail.
class Gate
{
public:
    void open() { m_promise.set_value(); }
    void fail(const HushwireError &error)
    {
        m_promise.set_exception(std::make_exception_ptr(error));
    }
    void pass() { m_future.get(); }

private:
    std::promise<void> m_promise;
    std::future<void> m_future = m_promise.get_future();
};

} // namespace

class DictationSessionTest : public testing::Test
{
protected:
    DictationSessionTest()
    {
        host.settings.volcengine.apiKey = u"voice-key-12345"_s;
        host.settings.deepSeek.apiKey = u"polish-key-12345"_s;
        QGuiApplication::clipboard()->setText(u"before"_s);
    }

    ~DictationSessionTest() override
    {
        queue.close();
        tasks.waitForDone();
        session.terminate();
        AppLogger::drain();
    }

    DictationServices services()
    {
        return {.openConnections = [this](const AppConfig &) { ++openings; },
                .transcribe =
                    [this](const AppConfig &, const QUrl &) {
                        ++transcriptions;
                        recognition.pass();
                        return transcript;
                    },
                .polish =
                    [this](const AppConfig &config, const QString &prompt, const QString &) {
                        usedModel = config.deepSeek.model;
                        usedPrompt = prompt;
                        polishing.pass();
                        return polished;
                    },
                .paste =
                    [this](const AppConfig &, const QString &text) {
                        pasted << text;
                        pasting.pass();
                    }};
    }

    void startRecording()
    {
        session.toggleRecording();
        ASSERT_TRUE(queue.runUntil([this] { return session.isRecording(); }));
    }

    void startProcessing()
    {
        startRecording();
        session.toggleRecording();
        ASSERT_TRUE(session.isProcessing());
    }

    void reach(const QString &statusWord)
    {
        ASSERT_TRUE(queue.runUntil([&] { return host.statusWords.last() == statusWord; }))
            << qPrintable(statusWord);
    }

    // Lets every stage that has not been opened before return.
    void finishFromRecognition()
    {
        recognition.open();
        polishing.open();
        pasting.open();
        reach(u"听"_s);
    }

    QStringList logMessages() const
    {
        AppLogger::drain();
        static const QRegularExpression head(u"^\\S+ \\[(\\w+)\\] \\[pid=\\d+\\] "_s);
        QStringList messages;
        const auto lines =
            QString::fromUtf8(home.read(u".wrenfold/logs/wrenfold.log"_s)).split(u'\n');
        for (auto line : lines)
            if (!line.isEmpty())
                messages << line.replace(head, u"\\1 "_s);
        return messages;
    }

    QStringList recordings() const
    {
        return QDir(home.runtimePath()).entryList({u"wrenfold-*.wav"_s}, QDir::Files);
    }

    QString clipboard() const { return QGuiApplication::clipboard()->text(); }

    TemporaryHome home;
    VirtualMainQueue queue;
    FakeDictationHost host;
    FakeAudioSystem audio;
    AudioRecorder recorder{audio};
    VoiceOverlayController overlay{queue, [] { return true; }};
    HistoryStore history;
    BackgroundTasks tasks;

    std::atomic<int> openings = 0;
    std::atomic<int> transcriptions = 0;
    Gate recognition;
    Gate polishing;
    Gate pasting;
    QString transcript = u"嗯 我们 ship it"_s;
    QString polished = u"我们 ship it。"_s;
    QString usedModel;
    QString usedPrompt;
    QStringList pasted;

    DictationSession session{{host, recorder, overlay, history, queue, tasks, services()}};
};

TEST_F(DictationSessionTest, RunsOneDictationFromPressToPaste)
{
    startRecording();
    EXPECT_TRUE(host.hasEscape);
    EXPECT_EQ(overlay.shownMode(), VoiceOverlayMode::recording(recorder.microphoneName()));
    EXPECT_EQ(recordings().size(), 1);
    queue.advance(25s);
    EXPECT_EQ(openings, 3);

    session.toggleRecording();
    EXPECT_FALSE(session.isRecording());
    EXPECT_FALSE(host.hasEscape);
    EXPECT_EQ(overlay.shownMode(), VoiceOverlayMode::typing(u"正在识别"_s));
    finishFromRecognition();

    EXPECT_EQ(host.statusWords, QStringList({u"录"_s, u"转"_s, u"整"_s, u"贴"_s, u"听"_s}));
    EXPECT_EQ(pasted, QStringList(polished));
    EXPECT_EQ(history.items().constFirst().transcript, transcript);
    EXPECT_EQ(history.items().constFirst().polished, polished);
    EXPECT_EQ(host.refreshes, 1);
    EXPECT_FALSE(overlay.shownMode());
    EXPECT_FALSE(session.isProcessing());
    EXPECT_TRUE(recordings().isEmpty());
    EXPECT_EQ(openings, 3);
}

TEST_F(DictationSessionTest, LogsEveryStepInOrderAndNoText)
{
    startProcessing();
    finishFromRecognition();
    const QStringList expected{
        u"INFO Recording requested\\."_s,
        u"INFO Microphone permission checked\\. granted=true status=authorized input=.+"_s,
        u"INFO AVAudioRecorder start result\\. prepared=true started=true .+"_s,
        u"INFO Recording started\\. microphone=.+"_s,
        u"INFO Recording stopped\\. audioBytes=\\d+"_s,
        u"INFO ASR started\\. resourceId=volc\\.bigasr\\.auc_turbo"_s,
        u"INFO ASR succeeded\\. transcriptChars=12"_s,
        u"INFO DeepSeek polish started\\. model=deepseek-v4-flash promptID=builtin\\.clean"_s,
        u"INFO DeepSeek polish succeeded\\. outputChars=11"_s,
        u"INFO Auto paste started\\."_s,
        u"INFO Auto paste succeeded\\."_s,
        u"INFO Processing timing\\. audioSeconds=\\d+\\.\\d\\d audioBytes=\\d+ asrMs=\\d+ "
        "polishMs=\\d+ pasteMs=\\d+ totalMs=\\d+"_s,
    };
    const auto messages = logMessages();
    ASSERT_EQ(messages.size(), expected.size()) << qPrintable(messages.join(u'\n'));
    for (qsizetype i = 0; i < expected.size(); ++i)
        EXPECT_TRUE(QRegularExpression(QRegularExpression::anchoredPattern(expected[i]))
                        .match(messages[i])
                        .hasMatch())
            << qPrintable(messages[i]);
}

namespace {

struct StageFailure
{
    const char *name;
    int stagesPassed;
    QString overlayText;
    QString timing;
    QString flags;
    bool isKept;
    QString clipboard;
};

} // namespace

class DictationFailureTest : public DictationSessionTest,
                             public testing::WithParamInterface<StageFailure>
{};

TEST_P(DictationFailureTest, SaysWhichStageFailedAndLosesNoPolishedText)
{
    const auto &row = GetParam();
    // A service that echoes every secret it was sent, whole, cut short and escaped.
    const QString spoken = row.stagesPassed > 0 ? transcript + u" \\u6211\\u4eec ship it"_s : u""_s;
    const auto echo = HushwireError::serviceFailed(u"HTTP 500。"_s + spoken
                                                   + u" voice-key-12345 Bearer polish-key-123"_s);
    startProcessing();
    Gate *const gates[] = {&recognition, &polishing, &pasting};
    for (int i = 0; i < row.stagesPassed; ++i)
        gates[i]->open();
    gates[row.stagesPassed]->fail(echo);
    reach(u"听"_s);

    EXPECT_EQ(overlay.shownMode(), VoiceOverlayMode::status(row.overlayText));
    EXPECT_EQ(history.items().size(), row.isKept ? 1 : 0);
    EXPECT_EQ(clipboard(), row.clipboard);
    EXPECT_EQ(host.permissionPages, 0);
    EXPECT_TRUE(recordings().isEmpty());
    queue.advance(1799ms);
    EXPECT_TRUE(overlay.shownMode());
    queue.advance(1ms);
    EXPECT_FALSE(overlay.shownMode());

    const auto messages = logMessages();
    const auto tail = messages.sliced(messages.size() - 3);
    EXPECT_TRUE(tail[0].startsWith(u"ERROR Processing failed. error=HTTP 500。"_s))
        << qPrintable(tail[0]);
    EXPECT_TRUE(tail[1].contains(QRegularExpression(row.timing))) << qPrintable(tail[1]);
    EXPECT_TRUE(tail[2].startsWith("ERROR Showing processing failure. stage="_L1 + row.flags
                                   + " error="_L1))
        << qPrintable(tail[2]);
    const auto all = messages.join(u'\n');
    for (const auto &secret : {u"ship it"_s, u"voice-key"_s, u"polish-key"_s, u"u6211"_s})
        EXPECT_FALSE(all.contains(secret)) << qPrintable(secret);
}

INSTANTIATE_TEST_SUITE_P(
    Stages,
    DictationFailureTest,
    testing::Values(
        StageFailure{
            "recognition",
            0,
            u"语音识别失败"_s,
            u"asrMs=-1 polishMs=-1 pasteMs=-1 totalMs=\\d+ failedStage=speechRecognition$"_s,
            u"speechRecognition hasPolishedFallback=false"_s,
            false,
            u"before"_s},
        StageFailure{"polishing",
                     1,
                     u"文字整理失败"_s,
                     u"asrMs=\\d+ polishMs=-1 pasteMs=-1 totalMs=\\d+ failedStage=textPolishing$"_s,
                     u"textPolishing hasPolishedFallback=false"_s,
                     false,
                     u"before"_s},
        StageFailure{"paste",
                     2,
                     u"已复制到剪贴板"_s,
                     u"asrMs=\\d+ polishMs=\\d+ pasteMs=-1 totalMs=\\d+ failedStage=autoPaste$"_s,
                     u"autoPaste hasPolishedFallback=true"_s,
                     true,
                     u"我们 ship it。"_s}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(DictationSessionTest, MissingInputPermissionOpensTheHelpAndKeepsTheText)
{
    startProcessing();
    recognition.open();
    polishing.open();
    pasting.fail(HushwireError::permissionMissing(u"需要辅助功能权限"_s));
    reach(u"听"_s);
    EXPECT_EQ(host.permissionPages, 1);
    EXPECT_EQ(clipboard(), polished);
}

TEST_F(DictationSessionTest, IgnoresPressesWhileStartingAndProcessing)
{
    session.toggleRecording();
    session.toggleRecording();
    session.toggleRecording();
    ASSERT_TRUE(queue.runUntil([this] { return session.isRecording(); }));
    EXPECT_EQ(recordings().size(), 1);

    session.toggleRecording();
    session.toggleRecording();
    session.cancelRecording();
    EXPECT_TRUE(session.isProcessing());
    finishFromRecognition();
    EXPECT_EQ(transcriptions, 1);
    EXPECT_EQ(logMessages().count(u"INFO Recording requested."_s), 1);
}

TEST_F(DictationSessionTest, EscapeThrowsTheRecordingAwayAndTheNextPressStartsAgain)
{
    startRecording();
    session.cancelRecording();
    // The second press that raced the Escape starts a new recording; the old message's hide time
    // must leave the new overlay alone.
    session.toggleRecording();
    EXPECT_EQ(overlay.shownMode(), VoiceOverlayMode::status(u"已取消"_s));
    EXPECT_TRUE(recordings().isEmpty());
    EXPECT_FALSE(host.hasEscape);
    ASSERT_TRUE(queue.runUntil([this] { return session.isRecording(); }));
    queue.advance(2s);
    EXPECT_TRUE(overlay.shownMode());
    EXPECT_EQ(overlay.shownMode()->kind, Kind::Recording);

    session.cancelRecording();
    queue.advance(899ms);
    EXPECT_TRUE(overlay.shownMode());
    queue.advance(1ms);
    EXPECT_FALSE(overlay.shownMode());
    session.cancelRecording();
    EXPECT_EQ(logMessages().count(u"INFO Recording cancelled."_s), 2);
}

TEST_F(DictationSessionTest, SaysThatAStageIsSlowOnlyWhileItLasts)
{
    startProcessing();
    queue.advance(7999ms);
    EXPECT_EQ(overlay.shownMode(), VoiceOverlayMode::typing(u"正在识别"_s));
    queue.advance(1ms);
    EXPECT_EQ(overlay.shownMode(), VoiceOverlayMode::typing(u"识别较慢"_s));

    recognition.open();
    reach(u"整"_s);
    EXPECT_EQ(overlay.shownMode(), VoiceOverlayMode::typing(u"正在整理"_s));
    polishing.open();
    reach(u"贴"_s);
    queue.advance(8s);
    EXPECT_EQ(overlay.shownMode(), VoiceOverlayMode::typing(u"整理较慢"_s));
    pasting.open();
    reach(u"听"_s);
    EXPECT_FALSE(overlay.shownMode());
}

TEST_F(DictationSessionTest, AStaleSlowMessageNeverShows)
{
    startProcessing();
    queue.advance(5s);
    recognition.open();
    reach(u"整"_s);
    queue.advance(4s);
    EXPECT_EQ(overlay.shownMode(), VoiceOverlayMode::typing(u"正在整理"_s));
    polishing.open();
    pasting.open();
    reach(u"听"_s);
    queue.advance(20s);
    EXPECT_FALSE(overlay.shownMode());
}

TEST_F(DictationSessionTest, SettingsChangedDuringADictationApplyToTheNextStage)
{
    startProcessing();
    host.settings.deepSeek.model = u"another-model"_s;
    host.settings.prompts.selectedID = u"custom.1"_s;
    host.settings.prompts.customPrompts = {{u"custom.1"_s, u"Mine"_s, u"Be brief."_s}};
    finishFromRecognition();
    EXPECT_EQ(usedModel, u"another-model"_s);
    EXPECT_EQ(usedPrompt, u"Be brief."_s);
}

TEST_F(DictationSessionTest, ADeniedMicrophoneRaisesAnAlert)
{
    audio.permission = MicrophonePermission::Denied;
    session.toggleRecording();
    ASSERT_TRUE(queue.runUntil([this] { return !host.alerts.isEmpty(); }));
    EXPECT_EQ(host.alerts, QStringList(u"需要麦克风权限才能录音。"_s));
    EXPECT_EQ(host.statusWords, QStringList(u"!"_s));
    host.dismissAlert();
    EXPECT_EQ(host.statusWords.last(), u"听"_s);
    EXPECT_EQ(logMessages().mid(2),
              QStringList({u"WARN Microphone permission denied."_s,
                           u"ERROR Showing error. error=需要麦克风权限才能录音。"_s}));
    audio.permission = MicrophonePermission::Authorized;
    startRecording();
}

TEST_F(DictationSessionTest, AStartThatFailsIsSaidAndTheNextPressWorks)
{
    audio.canRecord = false;
    session.toggleRecording();
    ASSERT_TRUE(queue.runUntil([this] { return overlay.shownMode().has_value(); }));
    EXPECT_EQ(overlay.shownMode(), VoiceOverlayMode::status(u"录音失败"_s));
    EXPECT_EQ(host.statusWords, QStringList({u"!"_s, u"听"_s}));
    EXPECT_TRUE(recordings().isEmpty());
    EXPECT_TRUE(host.alerts.isEmpty());
    audio.canRecord = true;
    startRecording();
}

TEST_F(DictationSessionTest, AStopThatFailsLeavesTheFlagsAlone)
{
    startRecording();
    QFile::remove(recorder.stop().toLocalFile());
    session.toggleRecording();
    EXPECT_TRUE(session.isRecording());
    EXPECT_FALSE(session.isProcessing());
    EXPECT_FALSE(host.hasEscape);
    EXPECT_EQ(overlay.shownMode(), VoiceOverlayMode::status(u"录音失败"_s));
}

TEST_F(DictationSessionTest, PastesAHistoryTextOrLeavesItOnTheClipboard)
{
    pasting.open();
    session.pasteHistoryText(u"早"_s);
    ASSERT_TRUE(queue.waitForWork());
    queue.runReady();
    EXPECT_EQ(logMessages(), QStringList(u"INFO History paste succeeded."_s));
    EXPECT_EQ(clipboard(), u"before"_s);

    pasting = Gate();
    pasting.fail(HushwireError::pasteFailed(u"无法创建自动粘贴事件。"_s));
    session.pasteHistoryText(u"晚"_s);
    ASSERT_TRUE(queue.runUntil([this] { return overlay.shownMode().has_value(); }));
    EXPECT_EQ(overlay.shownMode(), VoiceOverlayMode::status(u"粘贴失败"_s));
    EXPECT_EQ(clipboard(), u"晚"_s);
}

TEST_F(DictationSessionTest, QuittingInTheMiddleOfARecordingLeavesNoFile)
{
    startRecording();
    queue.close();
    session.terminate();
    EXPECT_TRUE(recordings().isEmpty());
}
