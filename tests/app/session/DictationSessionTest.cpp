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
#include <QImage>
#include <QScreen>
#include <QWidget>

#include <future>
#include <gtest/gtest.h>
#include <map>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class DictationSessionTest : public testing::Test
{
protected:
    DictationSessionTest()
    {
        audio.inputName = u"Mic"_s;
        host.settings.volcengine.apiKey = u"voice-key-12345"_s;
        host.settings.deepSeek.apiKey = u"polish-key-12345"_s;
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
        session.terminate();
        tasks.waitForDone();
        AppLogger::drain();
    }

    // Each service call blocks until its gate lets it return or fail.
    DictationServices services()
    {
        return {
            [this](const AppConfig &) { ++openings; },
            [this](const AppConfig &, const QUrl &) { return pass(0, transcript); },
            [this](const AppConfig &config, const QString &prompt, const QString &) {
                polishedBy = config.deepSeek.model + u' ' + prompt;
                return pass(1, polished);
            },
            [this](const AppConfig &config, const QString &text, PasteDelivery::Handler delivered) {
                pastedWith = config.paste;
                pasted << pass(2, text);
                reportDelivery = std::move(delivered);
            },
            [this] { return hasPreviousWindow; },
            [this](const QString &text) { copied = text; }};
    }

    QString pass(size_t stage, const QString &result)
    {
        gates.at(stage).get_future().get();
        return result;
    }

    // Lets the stage that runs return or fail.
    void answer(const std::exception_ptr &error = {})
    {
        auto &gate = gates.at(static_cast<size_t>(u"转整贴"_s.indexOf(word)));
        error ? gate.set_exception(error) : gate.set_value();
    }

    // What a service writes that repeats every secret it was sent, whole, cut short and escaped.
    QString echo() const
    {
        const auto later = u"changed-key-678 "_s + transcript + u" \\u6211\\u4eec ship it"_s;
        return u"HTTP 500。voice-key-12345 polish-key-123 "_s
            + (word == u"转"_s ? QString() : later);
    }

    // Takes one step; one that works in the background until the next status word comes. A number
    // is a time to pass.
    void take(const QString &step)
    {
        const auto await = [this] {
            ASSERT_TRUE(queue.runUntil([this] { return !host.statusWords.isEmpty(); }));
        };
        const auto fail = [&](const HushwireError &error) {
            answer(std::make_exception_ptr(error)), await();
        };
        const std::map<QString, std::function<void()>> steps{
            {u"start"_s, [&] { gates = {}, session.toggleRecording(), await(); }},
            {u"press"_s, [&] { session.toggleRecording(); }},
            {u"escape"_s, [&] { session.cancelRecording(); }},
            {u"ok"_s, [&] { answer(), await(); }},
            {u"fail"_s, [&] { fail(HushwireError::serviceFailed(u"x"_s)); }},
            {u"echo"_s, [&] { fail(HushwireError::serviceFailed(echo())); }},
            {u"rekey"_s, [&] { host.settings.deepSeek.apiKey = u"changed-key-67890"_s; }},
            {u"forbid"_s, [&] { fail(HushwireError::permissionMissing(u"辅助功能"_s)); }},
            {u"lose"_s, [&] { recorder.discard(); }},
            {u"unplug"_s, [&] { audio.condition = RecordingCondition::DeviceLost; }},
            {u"fill"_s, [&] { audio.condition = RecordingCondition::StorageFull; }},
            {u"deny"_s, [&] { audio.permission = MicrophonePermission::Denied; }},
            {u"ask"_s, [&] { audio.permission = MicrophonePermission::NotDetermined; }},
            {u"yes"_s, [&] { audio.permissionAnswer->give(MicrophonePermission::Authorized); }},
            {u"no"_s, [&] { audio.permissionAnswer->give(MicrophonePermission::Denied); }},
            {u"never"_s, [&] { take(u"no"_s), await(); }},
            {u"block"_s, [&] { audio.canCreate = false; }},
            {u"refuse"_s, [&] { audio.canRecord = false; }},
            {u"fetch"_s, [&] { reportDelivery(12ms); }},
            {u"ignore"_s, [&] { reportDelivery({}); }},
            {u"lock"_s, [&] { session.setLocked(true); }},
            {u"unlock"_s, [&] { session.setLocked(false); }},
            {u"dismiss"_s, [&] { host.alerts.clear(), host.dismissAlert(); }},
        };
        const auto found = steps.find(step);
        found == steps.end() ? queue.advance(VirtualMainQueue::Duration(step.toInt()))
                             : found->second();
    }

    // Takes the steps, separated by blanks; returns what is to be seen after each, "=" when nothing
    // has changed.
    QString play(const QString &script)
    {
        QStringList seen;
        for (const auto &step : script.split(u' ')) {
            word = host.statusWords.isEmpty() ? word : host.statusWords.last();
            host.statusWords.clear();
            const auto before = shown();
            take(step);
            seen << (shown() == before ? u"="_s : shown());
        }
        return seen.join(u" > "_s);
    }

    // The status words that came with the last step, the overlay, and what else has come of it.
    QString shown() const
    {
        const auto mode = overlay.shownMode();
        QStringList parts{host.statusWords.isEmpty() ? word : host.statusWords.join(QString()),
                          mode ? mode->displayedText() : u"-"_s};
        parts << host.alerts;
        if (host.hasEscape)
            parts << u"esc"_s;
        if (!copied.isNull())
            parts << u"copied"_s + (copied == polished ? u""_s : copied);
        if (host.permissionPages > 0)
            parts << u"help"_s;
        static const QMap<QString, QString> abbreviations{{u"录 使用中 Mic esc"_s, u"R"_s},
                                                          {u"转 正在识别"_s, u"A"_s},
                                                          {u"整 正在整理"_s, u"P"_s},
                                                          {u"贴 正在整理"_s, u"V"_s}};
        const auto whole = parts.join(u' ');
        return abbreviations.value(whole, whole);
    }

    QString logged() const { return loggedLines(home).join(u'\n'); }

    TemporaryHome home;
    VirtualMainQueue queue;
    FakeDictationHost host;
    FakeAudioSystem audio;
    AudioRecorder recorder{audio};
    VoiceOverlayController overlay{queue, {[] { return true; }, &QScreen::availableGeometry}};
    HistoryStore history;
    BackgroundTasks tasks;

    QString word; // the last status word before this step
    std::atomic<int> openings = 0;
    std::array<std::promise<void>, 3> gates; // recognition, polishing, pasting
    const QString transcript = u"嗯 我们 ship it"_s;
    const QString polished = u"我们 ship it。"_s;
    QString polishedBy; // which model, by which prompt
    QStringList pasted;
    PasteConfig pastedWith;
    PasteDelivery::Handler reportDelivery; // of the latest paste
    QString copied; // to the clipboard
    bool hasPreviousWindow = true;

    DictationSession session{{host, recorder, overlay, history, queue, tasks, services()}};
};

struct DictationScript
{
    QString steps;
    QString shown;
    qsizetype kept = 0; // in the history

    friend void PrintTo(const DictationScript &script, std::ostream *stream)
    {
        *stream << script.steps.toStdString();
    }
};

class DictationScriptTest : public DictationSessionTest,
                            public testing::WithParamInterface<DictationScript>
{};

TEST_P(DictationScriptTest, ShowsWhatEachStepComesTo)
{
    EXPECT_EQ(play(GetParam().steps).toStdString(), GetParam().shown.toStdString());
    EXPECT_EQ(history.items().size(), GetParam().kept);
}

// "R" stands for what is shown while recording, "A", "P" and "V" for the stages.
INSTANTIATE_TEST_SUITE_P(
    Scripts,
    DictationScriptTest,
    testing::Values(
        // Whatever is pressed while a stage runs is ignored.
        DictationScript{
            u"start press press ok escape ok press ok"_s, u"R > A > = > P > = > V > = > 听 -"_s, 1},
        // The press that races an Escape starts anew, and an old message's end hides nothing new.
        DictationScript{u"start escape start 2000 escape start press 2000 ok ok ok escape"_s,
                        u"R > 听 已取消 > R > = > 听 已取消 > R > A > = > P > V > 听 - > ="_s,
                        1},
        DictationScript{u"start escape 899 1"_s, u"R > 听 已取消 > = > 听 -"_s},
        // A stage is said to be slow only while it lasts.
        DictationScript{
            u"start press 7999 1 ok ok ok start press 5000 ok 4000 ok 4000 ok"_s,
            u"R > A > = > 转 识别较慢 > P > V > 听 - > R > A > = > P > = > V > 贴 整理较慢 > 听 -"_s,
            2},
        // An interrupted recording waits for a press, for ten seconds, or for Escape.
        DictationScript{u"start unplug 34 9000 press ok ok ok"_s,
                        u"R > = > 录 麦克风已断开 esc > = > A > P > V > 听 -"_s,
                        1},
        DictationScript{u"start fill 34 9998 1 fail"_s,
                        u"R > = > 录 磁盘已满 esc > = > A > 听 语音识别失败"_s},
        DictationScript{u"start unplug 34 escape 20000"_s,
                        u"R > = > 录 麦克风已断开 esc > 听 已取消 > 听 -"_s},
        // A stage that fails is named; only a failed paste leaves its text on the clipboard.
        DictationScript{u"start press fail 1799 1"_s, u"R > A > 听 语音识别失败 > = > 听 -"_s},
        DictationScript{u"start press ok fail start"_s, u"R > A > P > 听 文字整理失败 > R"_s},
        DictationScript{
            u"start press ok ok fail"_s, u"R > A > P > V > 听 已复制到剪贴板 copied"_s, 1},
        DictationScript{
            u"start press ok ok forbid"_s, u"R > A > P > V > 听 已复制到剪贴板 copied help"_s, 1},
        // A paste that nobody fetched is told of, unless the next dictation runs.
        DictationScript{u"start press ok ok ok fetch ignore 1799 1 start ignore"_s,
                        u"R > A > P > V > 听 - > = > 听 已复制到剪贴板 > = > 听 - > R > ="_s,
                        1},
        // A start that fails is told, over whatever was said before.
        DictationScript{u"start escape deny start dismiss"_s,
                        u"R > 听 已取消 > = > ! - 需要麦克风权限才能录音。 > 听 -"_s},
        // A denial that comes late ends what was begun; nothing is sent before the answer.
        DictationScript{u"ask start no 34 dismiss"_s,
                        u"= > R > = > ! - 需要麦克风权限才能录音。 > 听 -"_s},
        DictationScript{u"ask start press 9000 never dismiss"_s,
                        u"= > R > A > 转 识别较慢 > ! - 需要麦克风权限才能录音。 > 听 -"_s},
        DictationScript{u"ask start press yes ok ok ok"_s, u"= > R > A > = > P > V > 听 -"_s, 1},
        DictationScript{u"ask start press"_s, u"= > R > A"_s},
        DictationScript{u"block start dismiss"_s, u"= > ! - The file cannot be created. > 听 -"_s},
        DictationScript{u"refuse start 1799 1"_s, u"= > !听 录音失败 > = > 听 -"_s},
        // A stop that fails leaves the recording's state alone.
        DictationScript{u"start lose press"_s, u"R > = > !听 录音失败"_s}));

TEST_F(DictationSessionTest, TakesTheSettingsOfEachStageAndLogsEveryStepButNoText)
{
    audio.content = QByteArray(112'364, '\0');
    play(u"start 25000 press"_s);
    EXPECT_EQ(openings, 3);
    // What is changed meanwhile applies to the stages that follow.
    host.settings.deepSeek.model = u"another-model"_s;
    host.settings.prompts = {u"custom.1"_s, {{u"custom.1"_s, u"Mine"_s, u"Be brief."_s}}};
    EXPECT_TRUE(queue.runUntil([this] { return logged().contains(u"ASR started."_s); }));
    EXPECT_FALSE(queue.runUntil([] { return false; }, 20ms)); // recognition takes its time
    play(u"ok"_s);
    host.settings.paste = {7};
    play(u"ok ok"_s);
    EXPECT_EQ(polishedBy, u"another-model Be brief."_s);
    EXPECT_EQ(pasted, QStringList(polished));
    EXPECT_EQ(pastedWith, host.settings.paste);
    EXPECT_EQ(history.items().constFirst().transcript, transcript);
    EXPECT_EQ(history.items().constFirst().polished, polished);
    EXPECT_EQ(host.refreshes, 1);
    EXPECT_EQ(openings, 3);
    play(u"fetch ignore"_s);
    const QRegularExpression log(
        u"^INFO Recording requested\\.\n"
        "INFO Microphone permission checked\\. granted=true status=authorized input=Mic\n"
        "INFO AVAudioRecorder start result\\. prepared=true started=true .+ input=Mic\n"
        "INFO Recording started\\. microphone=Mic\n"
        "INFO Recording stopped\\. audioBytes=112364\n"
        "INFO ASR started\\. resourceId=volc\\.bigasr\\.auc_turbo\n"
        "INFO ASR succeeded\\. transcriptChars=12\n"
        "INFO DeepSeek polish started\\. model=another-model promptID=custom\\.1\n"
        "INFO DeepSeek polish succeeded\\. outputChars=11\n"
        "INFO Auto paste started\\.\n"
        "INFO Auto paste succeeded\\.\n"
        "INFO Processing timing\\. audioSeconds=3\\.51 audioBytes=112364 asrMs=(\\d+) "
        "polishMs=\\d+ pasteMs=\\d+ totalMs=(\\d+)\n"
        "INFO Paste delivered\\. fetchMs=12\n"
        "WARN Paste not delivered\\. Nobody fetched the text\\.$"_s);
    const auto match = log.match(logged());
    EXPECT_TRUE(match.hasMatch()) << qPrintable(logged());
    EXPECT_GE(match.captured(1).toInt(), 19);
    EXPECT_GE(match.captured(2).toInt(), match.captured(1).toInt());
}

TEST_F(DictationSessionTest, AFailureIsLoggedWithItsStageAndWithoutWhatTheServiceEchoes)
{
    // The stages that ended, whether a text is left, and the name of the one that failed.
    const std::tuple<QString, QString, QString, QString> rows[] = {
        {u"rekey echo"_s, u"-1 polishMs=-1"_s, u"false"_s, u"speechRecognition"_s},
        {u"rekey ok echo"_s, u"\\d+ polishMs=-1"_s, u"false"_s, u"textPolishing"_s},
        {u"rekey ok ok echo"_s, u"\\d+ polishMs=\\d+"_s, u"true"_s, u"autoPaste"_s}};
    for (const auto &[steps, timings, isKept, stage] : rows) {
        host.settings.deepSeek.apiKey = u"polish-key-12345"_s;
        play(u"start press "_s + steps);
        const QRegularExpression tail(
            u"\nERROR Processing failed\\. error=HTTP 500。.*\nINFO Processing timing\\. .* "
            "asrMs=%1 pasteMs=-1 totalMs=\\d+ failedStage=%3\nERROR Showing processing failure\\. "
            "stage=%3 hasPolishedFallback=%2 error=HTTP 500。.*$"_s.arg(timings, isKept, stage));
        EXPECT_TRUE(logged().contains(tail)) << qPrintable(logged());
    }
    for (const auto &secret :
         {u"ship it"_s, u"voice-key"_s, u"polish-key"_s, u"changed-key"_s, u"u6211"_s})
        EXPECT_FALSE(logged().contains(secret)) << qPrintable(secret);
}

TEST_F(DictationSessionTest, ALockEndsARecordingWhoseTextIsKeptAndToldOfAfterwards)
{
    EXPECT_EQ(play(u"lock press unlock"_s), u"= > = > ="_s);
    EXPECT_FALSE(logged().contains(u"Recording requested."_s));
    EXPECT_EQ(play(u"start lock ok"_s), u"R > A > P"_s);
    play(u"ok"_s);
    EXPECT_TRUE(queue.runUntil([this] { return !session.isProcessing(); }));
    EXPECT_TRUE(pasted.isEmpty());
    EXPECT_EQ(history.items().size(), 1);
    EXPECT_EQ(play(u"3600000 unlock 1799 1"_s),
              u"听 - copied > 听 已复制到剪贴板 copied > = > 听 - copied"_s);
}

TEST_F(DictationSessionTest, TheOverlayFollowsTheLevelWhileRecording)
{
    QList<QImage> pictures;
    for (const float power : {-160.0F, -160.0F, 0.0F}) {
        audio.powerDb = power;
        play(u"start 100"_s);
        for (auto *window : QApplication::topLevelWidgets())
            if (window->isVisible())
                pictures << window->grab().toImage();
        play(u"escape"_s);
    }
    ASSERT_EQ(pictures.size(), 3);
    EXPECT_EQ(pictures[0], pictures[1]);
    EXPECT_NE(pictures[1], pictures[2]);
}

TEST_F(DictationSessionTest, ADictationThatQuittingCancelsIsNoFailure)
{
    play(u"start press"_s);
    queue.close();
    play(u"0"_s);
    answer(std::make_exception_ptr(LocalizedError(u"cancelled"_s)));
    tasks.waitForDone();
    EXPECT_TRUE(logged().endsWith(u"INFO ASR started. resourceId=volc.bigasr.auc_turbo"_s));
    EXPECT_TRUE(recordings().isEmpty());
}

TEST_F(DictationSessionTest, ATextThatIsPolishedWhileTheApplicationQuitsIsKept)
{
    play(u"start press ok"_s);
    queue.close();
    play(u"0"_s);
    answer();
    tasks.waitForDone();
    EXPECT_TRUE(history.items().isEmpty());
    session.keepText();
    session.keepText();
    ASSERT_EQ(history.items().size(), 1);
    EXPECT_EQ(history.items()[0].polished, polished);
}

TEST_F(DictationSessionTest, PastesAHistoryTextOrLeavesItOnTheClipboard)
{
    gates[2].set_value();
    session.pasteHistoryText(u"早"_s);
    EXPECT_TRUE(queue.runUntil([this] { return logged() == u"INFO History paste succeeded."_s; }));
    EXPECT_EQ(shown(), u" -"_s);
    const auto thrown = [](const auto &failure) { return std::make_exception_ptr(failure); };
    // The kind tells, whatever the words; only of a permission they say which.
    const std::pair<std::exception_ptr, QString> rows[] = {
        {thrown(HushwireError::pasteFailed(u"辅助功能"_s)), u" 粘贴失败 copied早"_s},
        {thrown(HushwireError::responseFailed(u"x"_s)), u" 识别失败 copied早"_s},
        {thrown(HushwireError::serviceFailed(u"x"_s)), u" 处理失败 copied早"_s},
        {thrown(LocalizedError(u"辅助功能"_s)), u" 处理失败 copied早"_s},
        {thrown(HushwireError::permissionMissing(u"麦克风"_s)), u" 需要权限 copied早"_s},
        {thrown(HushwireError::permissionMissing(u"辅助功能"_s)), u" 需要权限 copied早 help"_s}};
    for (const auto &[error, expected] : rows) {
        gates[2] = std::promise<void>();
        gates[2].set_exception(error);
        session.pasteHistoryText(u"早"_s);
        EXPECT_TRUE(queue.runUntil([&, &wanted = expected] { return shown() == wanted; }));
        EXPECT_TRUE(logged().contains(u"\nERROR History paste failed. error="_s));
        play(u"1599"_s);
        EXPECT_NE(overlay.shownMode(), std::nullopt);
        play(u"1"_s);
        EXPECT_EQ(overlay.shownMode(), std::nullopt);
    }
    hasPreviousWindow = false;
    session.pasteHistoryText(u"晚"_s);
    EXPECT_TRUE(queue.runUntil([&] { return shown() == u" 已复制到剪贴板 copied晚 help"_s; }));
    EXPECT_EQ(pasted.size(), 1);
}
