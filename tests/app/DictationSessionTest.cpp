// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AudioRecorder.h"
#include "BackgroundTasks.h"
#include "DictationSession.h"
#include "FakeAudioSystem.h"
#include "FakeDictationHost.h"
#include "HistoryStore.h"
#include "HushwireError.h"
#include "LoggedLines.h"
#include "VirtualMainQueue.h"
#include "VoiceOverlayController.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QWidget>

#include <future>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Mode = VoiceOverlayMode;

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
        // Whatever happened: what is idle schedules nothing and leaves nothing behind.
        if (!session.isRecording() && !session.isProcessing()) {
            queue.advance(20s);
            EXPECT_EQ(queue.scheduled(), 0U);
            EXPECT_FALSE(overlay.shownMode());
            EXPECT_TRUE(recordings().isEmpty());
        }
        EXPECT_FALSE(audio.wasAskedOnMainThread);
        queue.close();
        tasks.waitForDone();
        session.terminate();
        AppLogger::drain();
    }

    // Each service call blocks until its gate lets it return or fail.
    DictationServices services()
    {
        return {[this](const AppConfig &) { ++openings; },
                [this](const AppConfig &, const QUrl &) {
                    gates[0].get_future().get();
                    return transcript;
                },
                [this](const AppConfig &config, const QString &prompt, const QString &) {
                    polishedBy = config.deepSeek.model + u' ' + prompt;
                    gates[1].get_future().get();
                    return polished;
                },
                [this](const AppConfig &config, const QString &text) {
                    pasted << text;
                    pastedWith = config.paste;
                    gates[2].get_future().get();
                }};
    }

    // Lets the dictation go on, from its start if none runs, until it has this status word.
    void reach(const QString &word)
    {
        do {
            const auto at = host.statusWords.isEmpty() ? 0 : words.indexOf(host.statusWords.last());
            if (at < 2) {
                gates = {};
                session.toggleRecording();
            } else {
                gates.at(static_cast<size_t>(at - 2)).set_value();
            }
            await(words[(at + 1) % words.size()]);
        } while (host.statusWords.last() != word && !HasFatalFailure());
    }

    void await(const QString &word)
    {
        ASSERT_TRUE(queue.runUntil([&] { return host.statusWords.endsWith(word); }));
    }

    // The overlay as it is drawn after so long.
    QImage pictureAfter(VirtualMainQueue::Duration time)
    {
        queue.advance(time);
        for (auto *window : QApplication::topLevelWidgets())
            if (window->isVisible())
                return window->grab().toImage();
        return {};
    }

    QString logged() const { return loggedLines(home).join(u'\n'); }
    QString clipboard() const { return QGuiApplication::clipboard()->text(); }

    TemporaryHome home;
    VirtualMainQueue queue;
    FakeDictationHost host;
    FakeAudioSystem audio;
    AudioRecorder recorder{audio};
    VoiceOverlayController overlay{queue, [] { return true; }};
    HistoryStore history;
    BackgroundTasks tasks;

    const QStringList words{u"听"_s, u"录"_s, u"转"_s, u"整"_s, u"贴"_s};
    std::atomic<int> openings = 0;
    std::array<std::promise<void>, 3> gates; // recognition, polishing, pasting
    const QString transcript = u"嗯 我们 ship it"_s;
    const QString polished = u"我们 ship it。"_s;
    QString polishedBy; // which model, by which prompt
    QStringList pasted;
    PasteConfig pastedWith;

    DictationSession session{{host, recorder, overlay, history, queue, tasks, services()}};
};

TEST_F(DictationSessionTest, RunsFromPressToPasteAndLogsEveryStepButNoText)
{
    audio.content = QByteArray(112'364, '\0');
    reach(u"录"_s);
    EXPECT_TRUE(session.isRecording() && host.hasEscape);
    EXPECT_EQ(overlay.shownMode(), Mode::recording(audio.inputName));
    EXPECT_EQ(recordings().size(), 1);
    queue.advance(25s);
    EXPECT_EQ(openings, 3);
    reach(u"转"_s);
    EXPECT_FALSE(session.isRecording() || host.hasEscape);
    EXPECT_EQ(overlay.shownMode(), Mode::typing(u"正在识别"_s));
    // What is changed meanwhile applies to the stages that follow.
    host.settings.deepSeek.model = u"another-model"_s;
    host.settings.prompts = {u"custom.1"_s, {{u"custom.1"_s, u"Mine"_s, u"Be brief."_s}}};
    EXPECT_FALSE(queue.runUntil([] { return false; }, 20ms)); // recognition takes its time
    reach(u"整"_s);
    host.settings.paste = {7};
    reach(u"听"_s);

    EXPECT_EQ(host.statusWords, words.sliced(1) + words.first(1));
    EXPECT_EQ(polishedBy, u"another-model Be brief."_s);
    EXPECT_EQ(pasted, QStringList(polished));
    EXPECT_EQ(pastedWith, host.settings.paste);
    EXPECT_EQ(history.items().constFirst().transcript, transcript);
    EXPECT_EQ(history.items().constFirst().polished, polished);
    EXPECT_EQ(host.refreshes, 1);
    EXPECT_FALSE(overlay.shownMode());
    EXPECT_EQ(openings, 3);
    const auto log =
        u"^INFO Recording requested\\.\n"
        "INFO Microphone permission checked\\. granted=true status=authorized input=.+\n"
        "INFO AVAudioRecorder start result\\. prepared=true started=true .+\n"
        "INFO Recording started\\. microphone=.+\n"
        "INFO Recording stopped\\. audioBytes=112364\n"
        "INFO ASR started\\. resourceId=volc\\.bigasr\\.auc_turbo\n"
        "INFO ASR succeeded\\. transcriptChars=12\n"
        "INFO DeepSeek polish started\\. model=another-model promptID=custom\\.1\n"
        "INFO DeepSeek polish succeeded\\. outputChars=11\n"
        "INFO Auto paste started\\.\n"
        "INFO Auto paste succeeded\\.\n"
        "INFO Processing timing\\. audioSeconds=3\\.51 audioBytes=112364 asrMs=(\\d+) "
        "polishMs=\\d+ pasteMs=\\d+ totalMs=(\\d+)$"_s;
    const auto match = QRegularExpression(log).match(logged());
    EXPECT_TRUE(match.hasMatch()) << qPrintable(logged());
    EXPECT_GE(match.captured(1).toInt(), 19);
    EXPECT_GE(match.captured(2).toInt(), match.captured(1).toInt());
}

// The stage that fails, and whether for lack of the permission to post input.
class DictationFailureTest : public DictationSessionTest,
                             public testing::WithParamInterface<std::pair<int, bool>>
{};

TEST_P(DictationFailureTest, SaysWhichStageFailedAndLosesNoPolishedText)
{
    const auto [stage, isPermission] = GetParam();
    const bool isKept = stage == 2;
    reach(words[2]);
    // A key that is changed meanwhile is a secret of the stages that follow.
    host.settings.deepSeek.apiKey += u"-changed"_s;
    if (stage > 0)
        reach(words[stage + 2]);
    // A service that echoes every secret it was sent, whole, cut short and escaped.
    const auto spoken = stage > 0 ? transcript + u" \\u6211\\u4eec ship it"_s : QString();
    const auto changed = stage > 0 ? u" 345-changed"_s : QString();
    const auto echo =
        u"HTTP 500。"_s + spoken + changed + u" voice-key-12345 Bearer polish-key-123"_s;
    const auto error = isPermission ? HushwireError::permissionMissing(u"需要辅助功能权限"_s)
                                    : HushwireError::serviceFailed(echo);
    gates.at(static_cast<size_t>(stage)).set_exception(std::make_exception_ptr(error));
    await(u"听"_s);

    EXPECT_EQ(overlay.shownMode(),
              Mode::status(
                  QStringList{u"语音识别失败"_s, u"文字整理失败"_s, u"已复制到剪贴板"_s}[stage]));
    EXPECT_EQ(history.items().size(), isKept ? 1 : 0);
    EXPECT_EQ(clipboard(), isKept ? polished : u"before"_s);
    EXPECT_EQ(host.permissionPages, isPermission ? 1 : 0);
    queue.advance(1799ms);
    EXPECT_TRUE(overlay.shownMode());
    queue.advance(1ms);
    EXPECT_FALSE(overlay.shownMode());

    const auto log = logged();
    const auto tail =
        u"\nERROR Processing failed\\. error=%1.*\nINFO Processing timing\\. .* asrMs=%2 "
        "polishMs=%3 pasteMs=-1 totalMs=\\d+ failedStage=%4\nERROR Showing processing failure\\. "
        "stage=%4 hasPolishedFallback=%5 error=%1.*$"_s.arg(
            isPermission ? u"需要"_s : u"HTTP 500。"_s,
            stage > 0 ? u"\\d+"_s : u"-1"_s,
            stage > 1 ? u"\\d+"_s : u"-1"_s,
            QStringList{u"speechRecognition"_s, u"textPolishing"_s, u"autoPaste"_s}[stage],
            isKept ? u"true"_s : u"false"_s);
    EXPECT_TRUE(log.contains(QRegularExpression(tail))) << qPrintable(log);
    for (const auto &secret :
         {u"ship it"_s, u"voice-key"_s, u"polish-key"_s, u"u6211"_s, u"5-chan"_s})
        EXPECT_FALSE(log.contains(secret)) << qPrintable(secret);
    reach(u"录"_s);
}

INSTANTIATE_TEST_SUITE_P(Stages,
                         DictationFailureTest,
                         testing::Values(std::pair(0, false),
                                         std::pair(1, false),
                                         std::pair(2, false),
                                         std::pair(2, true)));

TEST_F(DictationSessionTest, IgnoresPressesWhileStartingAndProcessing)
{
    for (int press = 0; press < 3; ++press)
        session.toggleRecording();
    await(u"录"_s);
    EXPECT_EQ(recordings().size(), 1);
    for (const auto &word : {u"转"_s, u"整"_s, u"贴"_s}) {
        reach(word);
        session.toggleRecording();
        session.cancelRecording();
        EXPECT_TRUE(session.isProcessing() && !session.isRecording());
    }
    reach(u"听"_s);
    EXPECT_EQ(host.statusWords, words.sliced(1) + words.first(1));
    EXPECT_EQ(pasted.size(), 1);
    EXPECT_EQ(logged().count(u"Recording requested."_s), 1);
}

TEST_F(DictationSessionTest, EscapeThrowsTheRecordingAwayAndTheNextPressStartsAgain)
{
    reach(u"录"_s);
    session.cancelRecording();
    EXPECT_TRUE(recordings().isEmpty());
    // The second press that raced the Escape starts a new recording; the old message's hide time
    // must leave the new overlay alone.
    session.toggleRecording();
    EXPECT_EQ(overlay.shownMode(), Mode::status(u"已取消"_s));
    EXPECT_EQ(host.statusWords.last(), u"听"_s);
    EXPECT_FALSE(host.hasEscape);
    await(u"录"_s);
    queue.advance(2s);
    EXPECT_EQ(overlay.shownMode(), Mode::recording(audio.inputName));
    session.cancelRecording();
    reach(u"转"_s);
    queue.advance(2s);
    EXPECT_EQ(overlay.shownMode(), Mode::typing(u"正在识别"_s));
    reach(u"录"_s);

    session.cancelRecording();
    queue.advance(899ms);
    EXPECT_TRUE(overlay.shownMode());
    queue.advance(1ms);
    EXPECT_FALSE(overlay.shownMode());
    session.cancelRecording();
    EXPECT_EQ(logged().count(u"INFO Recording cancelled."_s), 3);
}

TEST_F(DictationSessionTest, SaysThatAStageIsSlowOnlyWhileItLasts)
{
    reach(u"转"_s);
    queue.advance(7999ms);
    EXPECT_EQ(overlay.shownMode(), Mode::typing(u"正在识别"_s));
    queue.advance(1ms);
    EXPECT_EQ(overlay.shownMode(), Mode::typing(u"识别较慢"_s));
    reach(u"听"_s);
    reach(u"转"_s);
    queue.advance(5s); // the message of the last dictation's polishing is still due
    reach(u"整"_s);
    queue.advance(4s);
    EXPECT_EQ(overlay.shownMode(), Mode::typing(u"正在整理"_s));
    reach(u"贴"_s);
    queue.advance(4s);
    EXPECT_EQ(overlay.shownMode(), Mode::typing(u"整理较慢"_s));
    reach(u"听"_s);
    EXPECT_FALSE(overlay.shownMode());
}

TEST_F(DictationSessionTest, AStartThatFailsIsSaidAndTheNextPressWorks)
{
    using Permission = MicrophonePermission;
    const auto denied = u"需要麦克风权限才能录音。"_s;
    const auto impossible = u"The file cannot be created."_s;
    const auto refused = u"录音没有启动成功。请检查系统麦克风权限和输入设备，"
                         "然后退出 Wrenfold 后重新打开再试。"_s;
    const auto failed = u"ERROR Recording start failed. error="_s;
    // The permission, whether the file can be created, the error, what is logged before it is shown
    // and the overlay that shows it, or else an alert.
    const std::tuple<Permission, bool, QString, QString, std::optional<Mode>> rows[] = {
        {Permission::Denied, true, denied, u"WARN Microphone permission denied."_s, {}},
        {Permission::Authorized, false, impossible, failed + impossible, {}},
        {Permission::Authorized, true, refused, failed + refused, Mode::status(u"录音失败"_s)},
    };
    audio.canRecord = false;
    for (const auto &[permission, canCreate, error, line, mode] : rows) {
        audio.permission = permission;
        audio.canCreate = canCreate;
        host.statusWords.clear();
        overlay.show(Mode::status(u"earlier"_s));
        session.toggleRecording();
        ASSERT_TRUE(queue.runUntil([this] { return !host.statusWords.isEmpty(); }));
        EXPECT_EQ(host.statusWords, mode ? QStringList({u"!"_s, u"听"_s}) : QStringList(u"!"_s));
        EXPECT_EQ(overlay.shownMode(), mode);
        EXPECT_EQ(host.alerts, mode ? QStringList() : QStringList(error));
        if (!std::exchange(host.alerts, {}).isEmpty())
            host.dismissAlert();
        EXPECT_EQ(host.statusWords.last(), u"听"_s);
        EXPECT_TRUE(logged().endsWith(line + u"\nERROR Showing error. error="_s + error))
            << qPrintable(logged());
    }
    audio.canRecord = true;
    reach(u"听"_s);
}

TEST_F(DictationSessionTest, TheOverlayFollowsTheLevelWhileRecording)
{
    QList<QImage> pictures;
    for (const float power : {-160.0F, -160.0F, 0.0F}) {
        audio.powerDb = power;
        reach(u"录"_s);
        pictures << pictureAfter(100ms);
        session.cancelRecording();
    }
    EXPECT_EQ(pictures[0], pictures[1]);
    EXPECT_NE(pictures[1], pictures[2]);
}

TEST_F(DictationSessionTest, SaysAtOnceThatARecordingIsInterruptedAndProcessesWhatWasSpoken)
{
    using Condition = RecordingCondition;
    const auto wait = [this] { queue.advance(10s); };
    const auto press = [this] { session.toggleRecording(); };
    const auto cancel = [this] { session.cancelRecording(); };
    const std::tuple<Condition, QString, std::function<void()>, QString> rows[] = {
        {Condition::DeviceLost, u"麦克风已断开"_s, press, u"转"_s},
        {Condition::StorageFull, u"磁盘已满"_s, wait, u"转"_s},
        {Condition::DeviceLost, u"麦克风已断开"_s, cancel, u"听"_s}};
    for (const auto &[condition, text, act, word] : rows) {
        audio.condition = Condition::Capturing;
        reach(u"录"_s);
        audio.condition = condition;
        queue.advance(34ms);
        EXPECT_EQ(overlay.shownMode(), Mode::status(text));
        queue.advance(9900ms);
        EXPECT_TRUE(session.isRecording() && host.hasEscape);
        EXPECT_EQ(overlay.shownMode(), Mode::status(text));
        act();
        EXPECT_EQ(host.statusWords.last(), word);
        reach(u"听"_s);
    }
    EXPECT_EQ(history.items().size(), 3);
}

TEST_F(DictationSessionTest, ADictationThatQuittingCancelsIsNoFailure)
{
    for (const auto &word : {u"录"_s, u"转"_s})
        reach(word);
    queue.close();
    gates[0].set_exception(std::make_exception_ptr(LocalizedError(u"cancelled"_s)));
    tasks.waitForDone();
    EXPECT_TRUE(logged().endsWith(u"INFO ASR started. resourceId=volc.bigasr.auc_turbo"_s));
    EXPECT_TRUE(recordings().isEmpty());
}

TEST_F(DictationSessionTest, AStopThatFailsLeavesTheFlagsAlone)
{
    reach(u"录"_s);
    recorder.discard();
    session.toggleRecording();
    EXPECT_TRUE(session.isRecording() && !session.isProcessing());
    EXPECT_FALSE(host.hasEscape);
    EXPECT_EQ(overlay.shownMode(), Mode::status(u"录音失败"_s));
    EXPECT_TRUE(logged().contains(u"\nERROR Recording stop failed. error="_s));
}

TEST_F(DictationSessionTest, PastesAHistoryTextOrLeavesItOnTheClipboard)
{
    gates[2].set_value();
    session.pasteHistoryText(u"早"_s);
    EXPECT_TRUE(queue.runUntil([this] { return logged() == u"INFO History paste succeeded."_s; }));
    EXPECT_EQ(clipboard(), u"before"_s);
    const std::tuple<HushwireError, QString, int> rows[] = {
        {HushwireError::pasteFailed(u"无法创建自动粘贴事件。"_s), u"粘贴失败"_s, 0},
        {HushwireError::permissionMissing(u"需要辅助功能权限"_s), u"需要权限"_s, 1}};
    for (const auto &[error, message, pages] : rows) {
        gates[2] = std::promise<void>();
        gates[2].set_exception(std::make_exception_ptr(error));
        session.pasteHistoryText(message);
        ASSERT_TRUE(queue.runUntil([&] { return overlay.shownMode() == Mode::status(message); }));
        EXPECT_EQ(clipboard(), message);
        EXPECT_EQ(host.permissionPages, pages);
        EXPECT_TRUE(logged().contains(u"\nERROR History paste failed. error="_s));
    }
    queue.advance(1600ms);
    EXPECT_FALSE(overlay.shownMode());
}
