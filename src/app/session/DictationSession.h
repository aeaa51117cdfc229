// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "DictationServices.h"
#include "MainQueue.h"
#include "ProcessingFailureStage.h"
#include "RecordingCondition.h"

#include <QString>

#include <exception>
#include <memory>
#include <optional>
#include <utility>

class AudioRecorder;
class BackgroundTasks;
class DictationHost;
class HistoryStore;
class MicrophonePermissionAnswer;
class Recording;
class VoiceOverlayController;
struct OverlayMessage;
struct OverlayStage;

// Turns two presses of the hotkey into pasted text: the first starts the microphone, the second
// sends what was spoken through recognition, polishing and the paste. It alone holds the session's
// state and decides what the user sees of a failure. Main thread only; its own background work
// comes back through the main queue.
class DictationSession final
{
public:
    struct Collaborators
    {
        DictationHost &host;
        AudioRecorder &recorder;
        VoiceOverlayController &overlay;
        HistoryStore &history;
        MainQueue &mainQueue;
        BackgroundTasks &tasks;
        DictationServices services;
    };

    // The collaborators must outlive the session, and the session every task it has started.
    explicit DictationSession(Collaborators collaborators);
    ~DictationSession();

    [[nodiscard]] bool isRecording() const
    {
        return m_state == State::Recording || m_state == State::Interrupted;
    }
    [[nodiscard]] bool isProcessing() const { return m_state == State::Processing; }

    // The hotkey: starts a recording, or ends it and processes it. Ignored while a dictation is
    // processed or a start is pending.
    void toggleRecording();
    // Escape: throws the recording away. Does nothing when not recording.
    void cancelRecording();
    // While the session is locked nothing starts and nothing is typed: a recording ends as by the
    // hotkey, and the user is told of its text when the session is unlocked.
    void setLocked(bool isLocked);
    // Pastes a text of the history into the window that had the focus before ours; without one, or
    // on failure, it is left on the clipboard.
    void pasteHistoryText(const QString &text);
    // Presents a failure outside a dictation's stages.
    void showError(const std::exception_ptr &error);
    // Shows a short text in the overlay; it is hidden after the delay unless a dictation runs.
    void showOverlayMessage(const OverlayMessage &message);
    // Ends a recording for good when the application quits, and what a task waits for here; leaves
    // no file behind. The main queue is closed by then.
    void terminate();
    // Keeps the text that polishing gave last in the history, if it is not there yet. Once more
    // when the application quits and every task has ended: one that came that late is not lost.
    void keepText();

private:
    enum class State {
        Idle,
        Starting, // the microphone is being opened
        Recording,
        Interrupted, // nothing more is recorded: what was spoken waits to be processed
        Processing, // what was spoken is in the pipeline
    };

    void beginRecording();
    void startRecording(const MicrophonePermissionAnswer &permission);
    [[nodiscard]] bool checkMicrophonePermission(const MicrophonePermissionAnswer &permission,
                                                 const QString &microphone);
    void refuseMicrophone();
    void failToStart(const std::exception_ptr &error);
    void enterRecording(std::unique_ptr<Recording> recording, const QString &microphone);
    void followRecording();
    void interrupt(RecordingCondition condition);
    void finishRecording();
    void leaveRecording();
    void startLevelUpdates();
    void stopLevelUpdates();

    void finish(Recording &recording,
                const MicrophonePermissionAnswer &permission,
                const AppConfig &config);
    void process(const QUrl &audioURL, AppConfig config);
    void announcePolishing();
    void endProcessing();

    void paste(const AppConfig &config, const QString &text);
    void reportPasteDelivery(std::optional<std::chrono::milliseconds> fetchedAfter);

    void showProcessingStage(const OverlayStage &stage);
    void showProcessingFailure(const std::exception_ptr &error,
                               ProcessingFailureStage stage,
                               const std::optional<QString> &polishedText,
                               const QStringList &secrets);
    void leaveOnClipboard(const QString &text);
    void showHistoryPasteFailure(const std::exception_ptr &error, const QString &text);
    void showReadyOrRecording();

    DictationHost &m_host;
    AudioRecorder &m_recorder;
    VoiceOverlayController &m_overlay;
    HistoryStore &m_history;
    MainQueue &m_mainQueue;
    BackgroundTasks &m_tasks;
    const DictationServices m_services;

    State m_state = State::Idle;
    bool m_isLocked = false;
    bool m_hasCopiedWhileLocked = false;
    // The transcript and the polished text on their way to the history. The task's that processes
    // them, until it waits for the main thread or has ended.
    std::optional<std::pair<QString, QString>> m_unkept;
    // Of the latest dictation; absent before the first.
    std::shared_ptr<MicrophonePermissionAnswer> m_permission;
    // Changes with the displayed stage and when processing ends: retires stale slow messages.
    qint64 m_processingStageToken = 0;
    std::unique_ptr<RepeatingTimer> m_levelTimer;
    std::unique_ptr<RepeatingTimer> m_connectionTimer;
    std::unique_ptr<RepeatingTimer> m_interruptionTimer;
};
