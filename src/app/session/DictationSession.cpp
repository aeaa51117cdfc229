// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DictationSession.h"

#include "AppLogger.h"
#include "AudioRecorder.h"
#include "BackgroundTasks.h"
#include "DictationHost.h"
#include "DictationIntervals.h"
#include "ErrorClassification.h"
#include "HistoryStore.h"
#include "OverlayMessages.h"
#include "ProcessingTimings.h"
#include "PromptLibrary.h"
#include "SecretMasking.h"
#include "StatusWords.h"
#include "Text.h"
#include "VoiceOverlayController.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString activePromptText(const AppConfig &config)
{
    return PromptLibrary::selectedPrompt(config.prompts, config.polishPrompt).text;
}

} // namespace

DictationSession::DictationSession(Collaborators collaborators)
    : m_host(collaborators.host)
    , m_recorder(collaborators.recorder)
    , m_overlay(collaborators.overlay)
    , m_history(collaborators.history)
    , m_mainQueue(collaborators.mainQueue)
    , m_tasks(collaborators.tasks)
    , m_services(std::move(collaborators.services))
{}

DictationSession::~DictationSession() = default;

void DictationSession::toggleRecording()
{
    if (isRecording())
        finishRecording();
    else if (m_state == State::Idle && !m_isLocked)
        beginRecording();
}

void DictationSession::cancelRecording()
{
    if (!isRecording())
        return;
    AppLogger::info(u"Recording cancelled."_s);
    m_recorder.discard();
    m_state = State::Idle;
    leaveRecording();
    m_host.updateStatusTitle(StatusWords::ready);
    showOverlayMessage(OverlayMessages::cancelled());
}

void DictationSession::setLocked(bool isLocked)
{
    m_isLocked = isLocked;
    AppLogger::info("Session lock changed. locked="_L1 + flagText(isLocked));
    if (isLocked && isRecording())
        finishRecording();
    else if (!isLocked && std::exchange(m_hasCopiedWhileLocked, false))
        showOverlayMessage(OverlayMessages::failed(ProcessingFailureStage::AutoPaste));
}

void DictationSession::terminate()
{
    stopLevelUpdates();
    m_connectionTimer.reset();
    m_interruptionTimer.reset();
    m_recorder.discard();
    if (m_permission)
        m_permission->give(MicrophonePermission::Denied);
}

void DictationSession::beginRecording()
{
    AppLogger::info(u"Recording requested."_s);
    m_state = State::Starting;
    m_permission = m_recorder.requestPermission();
    m_tasks.start([this, permission = m_permission] {
        try {
            startRecording(*permission);
        } catch (const CancelledError &) {
            // The application quits.
        }
    });
}

// Off the main thread.
void DictationSession::startRecording(const MicrophonePermissionAnswer &permission)
{
    const auto microphone = m_recorder.microphoneName();
    if (!checkMicrophonePermission(permission, microphone))
        return;
    std::unique_ptr<Recording> recording;
    try {
        recording = m_recorder.start(microphone, permission.value());
    } catch (...) {
        const auto error = std::current_exception();
        AppLogger::error(u"Recording start failed."_s, error);
        m_mainQueue.runAndWait([this, &error] { failToStart(error); });
        return;
    }
    AppLogger::info("Recording started. microphone="_L1 + microphone);
    m_mainQueue.runAndWait([&] { enterRecording(std::move(recording), microphone); });
}

// Off the main thread. An answer that is still open does not hold up the start.
bool DictationSession::checkMicrophonePermission(const MicrophonePermissionAnswer &permission,
                                                 const QString &microphone)
{
    const auto status = permission.value(DictationIntervals::permissionAnswer);
    const bool isGranted = status == MicrophonePermission::Authorized;
    AppLogger::info("Microphone permission checked. granted="_L1 + flagText(isGranted)
                    + " status="_L1 + AudioRecorder::permissionStatusDescription(status)
                    + " input="_L1 + microphone);
    if (isGranted || status == MicrophonePermission::NotDetermined)
        return true;
    m_mainQueue.runAndWait([this] { refuseMicrophone(); });
    return false;
}

void DictationSession::refuseMicrophone()
{
    AppLogger::warning(u"Microphone permission denied."_s);
    m_recorder.discard();
    failToStart(
        std::make_exception_ptr(HushwireError::permissionMissing(u"需要麦克风权限才能录音。"_s)));
}

void DictationSession::failToStart(const std::exception_ptr &error)
{
    m_state = State::Idle;
    showError(error);
}

void DictationSession::enterRecording(std::unique_ptr<Recording> recording,
                                      const QString &microphone)
{
    if (m_isLocked) {
        m_state = State::Idle;
        return;
    }
    m_recorder.keep(std::move(recording));
    m_state = State::Recording;
    m_host.registerEscapeCancelHotKey();
    m_host.updateStatusTitle(StatusWords::recording);
    m_overlay.show(VoiceOverlayMode::recording(microphone));
    startLevelUpdates();
    m_services.openConnections(m_host.config());
    m_connectionTimer = m_mainQueue.repeatEvery(
        DictationIntervals::connections, [this] { m_services.openConnections(m_host.config()); });
}

void DictationSession::followRecording()
{
    const auto permission = m_permission->value();
    if (permission != MicrophonePermission::NotDetermined
        && permission != MicrophonePermission::Authorized)
        refuseMicrophone();
    else if (const auto condition = m_recorder.condition();
             condition != RecordingCondition::Capturing)
        interrupt(condition);
    else
        m_overlay.updateLevel(m_recorder.normalizedPowerLevel());
}

void DictationSession::interrupt(RecordingCondition condition)
{
    AppLogger::warning("Recording interrupted. storageFull="_L1
                       + flagText(condition == RecordingCondition::StorageFull));
    m_state = State::Interrupted;
    stopLevelUpdates();
    m_overlay.show(VoiceOverlayMode::status(OverlayMessages::interrupted(condition)));
    m_interruptionTimer =
        m_mainQueue.repeatEvery(DictationIntervals::interrupted, [this] { finishRecording(); });
}

void DictationSession::finishRecording()
{
    std::shared_ptr<Recording> recording;
    try {
        recording = m_recorder.stop();
    } catch (...) {
        const auto error = std::current_exception();
        AppLogger::error(u"Recording stop failed."_s, error);
        showError(error);
        return;
    }
    m_state = State::Processing;
    leaveRecording();
    showProcessingStage(OverlayMessages::recognising());
    m_host.updateStatusTitle(StatusWords::recognising);
    m_tasks.start([this, recording, permission = m_permission, config = m_host.config()] {
        finish(*recording, *permission, config);
    });
}

void DictationSession::leaveRecording()
{
    m_host.unregisterEscapeCancelHotKey();
    stopLevelUpdates();
    m_connectionTimer.reset();
    m_interruptionTimer.reset();
}

void DictationSession::startLevelUpdates()
{
    m_levelTimer =
        m_mainQueue.repeatEvery(DictationIntervals::level, [this] { followRecording(); });
}

void DictationSession::stopLevelUpdates()
{
    m_levelTimer.reset();
}

// Off the main thread. Nothing of what was recorded goes on before the microphone was allowed.
void DictationSession::finish(Recording &recording,
                              const MicrophonePermissionAnswer &permission,
                              const AppConfig &config)
{
    const auto audioURL = recording.finish();
    if (permission.wait() == MicrophonePermission::Authorized) {
        process(audioURL, config);
        return;
    }
    QFile::remove(audioURL.toLocalFile());
    m_mainQueue.post([this] { refuseMicrophone(); });
}

// The road from the recording to the pasted text, off the main thread.
void DictationSession::process(const QUrl &audioURL, AppConfig config)
{
    const auto audioBytes = static_cast<quint64>(QFileInfo(audioURL.toLocalFile()).size());
    AppLogger::info("Recording stopped. audioBytes="_L1 + QString::number(audioBytes));
    ProcessingTimings timings(audioBytes);
    auto stage = ProcessingFailureStage::SpeechRecognition;
    std::optional<QString> polishedText;
    QStringList secrets = secretsOf(config);
    try {
        AppLogger::info("ASR started. resourceId="_L1 + config.volcengine.resourceId);
        const auto transcript =
            timings.measure(stage, [&] { return m_services.transcribe(config, audioURL); });
        secrets << transcript;
        AppLogger::info("ASR succeeded. transcriptChars="_L1
                        + QString::number(characterCount(transcript)));

        stage = ProcessingFailureStage::TextPolishing;
        // Before the announcement: the request need not wait for it.
        m_mainQueue.runAndWait([&] { config = m_host.config(); });
        m_mainQueue.post([this] { announcePolishing(); });
        secrets << secretsOf(config);
        AppLogger::info("DeepSeek polish started. model="_L1 + config.deepSeek.model
                        + " promptID="_L1 + config.prompts.selectedID);
        polishedText = timings.measure(
            stage, [&] { return m_services.polish(config, activePromptText(config), transcript); });
        secrets << *polishedText;
        AppLogger::info("DeepSeek polish succeeded. outputChars="_L1
                        + QString::number(characterCount(*polishedText)));
        bool isLocked = false;
        m_unkept = {transcript, *polishedText};
        m_mainQueue.runAndWait([&] {
            keepText();
            config = m_host.config();
            isLocked = m_isLocked;
        });
        m_mainQueue.post([this] { m_host.updateStatusTitle(StatusWords::pasting); });

        stage = ProcessingFailureStage::AutoPaste;
        AppLogger::info(u"Auto paste started."_s);
        if (isLocked)
            throw HushwireError::pasteFailed(u"会话已锁定。"_s);
        timings.measure(stage, [&] { paste(config, *polishedText); });
        AppLogger::info(u"Auto paste succeeded."_s);
        AppLogger::info(timings.line());
        m_mainQueue.post([this] { m_overlay.hide(); });
    } catch (...) {
        const auto error = std::current_exception();
        // When the application quits, whatever still runs is cancelled: that is no failure.
        if (!m_mainQueue.isClosed()) {
            AppLogger::error(u"Processing failed."_s, withoutSecrets(error, secrets));
            AppLogger::info(timings.line(stage));
        }
        m_mainQueue.post([=, this] { showProcessingFailure(error, stage, polishedText, secrets); });
    }
    QFile::remove(audioURL.toLocalFile());
    m_mainQueue.post([this, isKept = polishedText.has_value()] {
        endProcessing();
        if (isKept)
            m_host.refreshMainWindow(); // the paste does not wait for it
    });
}

void DictationSession::announcePolishing()
{
    m_host.updateStatusTitle(StatusWords::polishing);
    showProcessingStage(OverlayMessages::polishing());
}

void DictationSession::keepText()
{
    if (const auto texts = std::exchange(m_unkept, {}))
        m_history.add(texts->first, texts->second);
}

void DictationSession::endProcessing()
{
    ++m_processingStageToken;
    m_state = State::Idle;
    m_host.updateStatusTitle(StatusWords::ready);
}

void DictationSession::showProcessingStage(const OverlayStage &stage)
{
    const auto token = ++m_processingStageToken;
    m_overlay.show(VoiceOverlayMode::typing(stage.text));
    m_mainQueue.postAfter(DictationIntervals::slowStageAfter, [this, token, stage] {
        if (m_state == State::Processing && m_processingStageToken == token)
            m_overlay.show(VoiceOverlayMode::typing(stage.slowText));
    });
}

void DictationSession::showProcessingFailure(const std::exception_ptr &error,
                                             ProcessingFailureStage stage,
                                             const std::optional<QString> &polishedText,
                                             const QStringList &secrets)
{
    AppLogger::error("Showing processing failure. stage="_L1 + logName(stage)
                         + " hasPolishedFallback="_L1 + flagText(polishedText.has_value()),
                     withoutSecrets(error, secrets));
    if (stage == ProcessingFailureStage::AutoPaste) {
        if (polishedText)
            m_services.copy(*polishedText);
        if (isAccessibilityPermissionError(error))
            m_host.openAccessibilityPermissionSettings();
    }
    m_hasCopiedWhileLocked |= m_isLocked && stage == ProcessingFailureStage::AutoPaste;
    showOverlayMessage(OverlayMessages::failed(stage));
}

void DictationSession::showError(const std::exception_ptr &error)
{
    AppLogger::error(u"Showing error."_s, withoutSecrets(error, secretsOf(m_host.config())));
    leaveRecording();
    m_overlay.hide();
    m_host.updateStatusTitle(StatusWords::error);
    if (isAccessibilityPermissionError(error)) {
        m_host.openAccessibilityPermissionSettings();
        showOverlayMessage(OverlayMessages::permissionNeeded());
        showReadyOrRecording();
    } else if (kindOf(error) == HushwireError::Kind::RecordingFailed) {
        showOverlayMessage(OverlayMessages::recordingFailed());
        m_host.updateStatusTitle(StatusWords::ready);
    } else {
        m_host.showAlert(localizedDescription(error), [this] { showReadyOrRecording(); });
    }
}

void DictationSession::showOverlayMessage(const OverlayMessage &message)
{
    stopLevelUpdates();
    m_overlay.show(VoiceOverlayMode::status(message.text));
    m_mainQueue.postAfter(message.shownFor, [this] {
        if (!isRecording() && !isProcessing())
            m_overlay.hide();
    });
}

void DictationSession::pasteHistoryText(const QString &text)
{
    m_tasks.start([this, text, config = m_host.config()] {
        try {
            if (!m_services.returnFocus()) {
                m_mainQueue.post([this, text] { leaveOnClipboard(text); });
                return;
            }
            paste(config, text);
            m_mainQueue.post([this] {
                m_overlay.hide();
                AppLogger::info(u"History paste succeeded."_s);
            });
        } catch (...) {
            const auto error = std::current_exception();
            m_mainQueue.post([this, error, text] { showHistoryPasteFailure(error, text); });
        }
    });
}

// Off the main thread.
void DictationSession::paste(const AppConfig &config, const QString &text)
{
    m_services.paste(
        config, text, [this](auto fetchedAfter) { reportPasteDelivery(fetchedAfter); });
}

void DictationSession::reportPasteDelivery(std::optional<std::chrono::milliseconds> fetchedAfter)
{
    if (fetchedAfter) {
        AppLogger::info("Paste delivered. fetchMs="_L1 + QString::number(fetchedAfter->count()));
        return;
    }
    AppLogger::warning(u"Paste not delivered. Nobody fetched the text."_s);
    if (m_state == State::Idle)
        showOverlayMessage(OverlayMessages::failed(ProcessingFailureStage::AutoPaste));
}

void DictationSession::leaveOnClipboard(const QString &text)
{
    AppLogger::info(u"History text copied. No window to paste into."_s);
    m_services.copy(text);
    showOverlayMessage(OverlayMessages::failed(ProcessingFailureStage::AutoPaste));
}

void DictationSession::showHistoryPasteFailure(const std::exception_ptr &error, const QString &text)
{
    AppLogger::error(u"History paste failed."_s, error);
    m_services.copy(text);
    if (isAccessibilityPermissionError(error))
        m_host.openAccessibilityPermissionSettings();
    showOverlayMessage(OverlayMessages::failed(error));
}

void DictationSession::showReadyOrRecording()
{
    // A dictation that has come to its later stages keeps its own word.
    if (!isProcessing())
        m_host.updateStatusTitle(isRecording() ? StatusWords::recording : StatusWords::ready);
}
