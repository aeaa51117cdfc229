// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppDelegate.h"

#include "Alert.h"
#include "AppLogger.h"
#include "AppRuntime.h"
#include "Appearance.h"
#include "AutoPaster.h"
#include "ClipboardWriter.h"
#include "DeepSeekPolisher.h"
#include "Farewell.h"
#include "InputPermissionHelp.h"
#include "OverlayMessages.h"
#include "StatusToolTip.h"
#include "StatusWords.h"
#include "TerminationSignals.h"
#include "Text.h"
#include "VolcengineFlashASR.h"
#include "WaylandSession.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The desktop may still be granting the permission while it starts the application.
constexpr auto permissionCheckDelay = 700ms;
// How often a duplicate launch looks whether the running instance has gone, and how long at most it
// waits for its answer: longer than an instance takes to quit.
constexpr auto takeOverInterval = 50ms;
constexpr auto handOverLimit = 6s;

QString keyFlag(const QString &key)
{
    return flagText(!key.trimmed().isEmpty());
}

QString hotKeyTaken(const HotKeyConfig &hotKey, const QString &owner)
{
    return u"快捷键 %1 已被桌面占用（%2），现在按它不会开始录音。\n\n请在“开始使用”页换一个"
           "快捷键，或先在系统设置的键盘快捷键中释放它，再重新启动 Wrenfold。"_s.arg(
               hotKey.displayName, owner);
}

QString keyFlags(const AppConfig &config)
{
    return "doubaoKeySet="_L1 + keyFlag(config.volcengine.apiKey) + " deepSeekKeySet="_L1
        + keyFlag(config.deepSeek.apiKey);
}

} // namespace

AppDelegate::AppDelegate(MainQueue &mainQueue, Backends backends)
    : m_mainQueue(mainQueue)
    , m_backends(std::move(backends))
    , m_singleInstanceGuard(AppRuntime::bundleIdentifier)
    , m_recorder(*m_backends.audio)
    , m_overlay(m_mainQueue,
                {m_backends.hasCompositor, m_backends.workArea, m_backends.overlay.get()})
    , m_statusMenu(menuActions())
    , m_globalHotKeys(
          *m_backends.hotKeys, m_backends.modifiers.get(), m_mainQueue, hotKeyCallbacks())
    , m_session(
          {*this, m_recorder, m_overlay, m_historyStore, m_mainQueue, m_tasks, dictationServices()})
    , m_lockWatch(*m_backends.sessionLock,
                  m_mainQueue,
                  {[this] { return m_backends.keyboard->isHeldByAnother(); },
                   [this](bool isLocked) { m_session.setLocked(isLocked); }})
{}

AppDelegate::~AppDelegate()
{
    applicationWillTerminate();
}

void AppDelegate::applicationDidFinishLaunching(LaunchMode mode)
{
    m_launchMode = mode;
    AppLogger::installCrashLogging();
    Farewell::install([this] { m_historyStore.drain(); });
    AppLogger::info("Launch started. app="_L1 + AppRuntime::appName + " bundleID="_L1
                    + AppRuntime::bundleIdentifier + " config="_L1 + AppRuntime::configPathDisplay
                    + " log="_L1 + AppLogger::logPathDisplay());
    if (m_singleInstanceGuard.acquire())
        launch();
    else
        handOver();
}

void AppDelegate::launch()
{
    installDuplicateLaunchObserver();
    configureStatusMenu();
    loadConfig();
    m_globalHotKeys.installHotKeyHandler();
    m_globalHotKeys.registerHotKey();
    updateStatusTitle(StatusWords::ready);
    m_lockWatch.start();
    m_backends.colorScheme->start(&Appearance::setColorScheme);
    if (m_launchMode == LaunchMode::ShowsWindow)
        m_mainQueue.post([this] { showGettingStarted(); });
    promptForAccessibilityPermissionIfNeeded();
    AppLogger::info(u"Launch finished."_s);
    AppLogger::info(m_backends.ways.summary());
    if (m_backends.usesXWayland)
        WaylandSession::warnOfLimits();
    m_statusMenu.showWhenHosted(std::move(m_backends.trayHosts));
    AudioRecorder::sweepLeftovers();
    m_mainQueue.post([this] { m_overlay.prepare(); });
}

void AppDelegate::applicationShouldHandleReopen()
{
    const bool hasVisibleWindows =
        m_mainWindowController && m_mainWindowController->hasVisibleWindow();
    AppLogger::info("Application reopen requested. hasVisibleWindows="_L1
                    + flagText(hasVisibleWindows));
    showGettingStarted();
}

void AppDelegate::applicationWillTerminate()
{
    if (std::exchange(m_hasTerminated, true))
        return;
    m_mainQueue.close();
    m_globalHotKeys.giveBack();
    m_http.close();
    m_session.terminate();
    m_tasks.waitForDone();
    m_session.keepText();
    m_backends.clipboard->handOver();
    if (m_mainWindowController)
        m_mainWindowController->keepSize();
    // From here on nobody logs any more.
    Farewell::say();
    m_historyStore.drain();
    AppLogger::drain();
    m_instanceChannel.close();
    m_singleInstanceGuard.release();
}

void AppDelegate::handOver()
{
    AppLogger::warning(
        u"Duplicate launch detected. Requesting existing instance to show main window."_s);
    m_handOverTimer = m_mainQueue.repeatEvery(takeOverInterval, [this] { takeOverOrHandOver(); });
    m_mainQueue.postAfter(handOverLimit, [this] {
        if (m_handOverTimer)
            QCoreApplication::quit();
    });
    if (requestExistingInstanceToShow() == InstanceAnswer::NoBus)
        AppLogger::warning(u"Duplicate launch request could not be sent. No session bus."_s);
}

// Who starts in the background has nothing to ask for, only a place to take.
InstanceAnswer AppDelegate::requestExistingInstanceToShow()
{
    if (m_launchMode == LaunchMode::InBackground)
        return InstanceAnswer::NoAnswer;
    const auto answer = InstanceChannel::ask(InstanceCommand::ShowMainWindow);
    if (answer == InstanceAnswer::Done)
        QCoreApplication::quit();
    return answer;
}

// An instance that quits no longer answers, and lets go of its lock last; one that starts does not
// hear us yet.
void AppDelegate::takeOverOrHandOver()
{
    if (!m_singleInstanceGuard.acquire()) {
        static_cast<void>(requestExistingInstanceToShow());
        return;
    }
    m_handOverTimer.reset();
    m_historyStore.load(); // what the other one saved last
    launch();
}

void AppDelegate::installDuplicateLaunchObserver()
{
    const bool isOpen = m_instanceChannel.open(
        [this](auto command, auto askedAt) { return handleInstanceCommand(command, askedAt); },
        [this] { return m_globalHotKeys.hasHotKey(); });
    if (!isOpen)
        AppLogger::warning(u"Duplicate launch requests cannot be received. No session bus."_s);
}

bool AppDelegate::handleInstanceCommand(InstanceCommand command, InstanceChannel::Time askedAt)
{
    // On its way out, with the signal behind this request in the event loop's queue.
    if (TerminationSignals::hasArrived())
        return false;
    switch (command) {
    case InstanceCommand::ShowMainWindow:
        handleDuplicateLaunchRequest();
        break;
    case InstanceCommand::ToggleRecording:
        if (m_backends.hotKeys->acceptsReportedPress(HotKeyId::Main, askedAt))
            m_mainQueue.post([this] { m_session.toggleRecording(); });
        break;
    case InstanceCommand::CancelRecording:
        if (m_backends.hotKeys->acceptsReportedPress(HotKeyId::Escape, askedAt))
            m_mainQueue.post([this] { m_session.cancelRecording(); });
        break;
    case InstanceCommand::Quit:
        QCoreApplication::quit();
        break;
    }
    return true;
}

void AppDelegate::handleDuplicateLaunchRequest()
{
    AppLogger::info(u"Duplicate launch request received. Showing main window."_s);
    showGettingStarted();
}

void AppDelegate::configureStatusMenu()
{
    m_globalHotKeys.showToolTip(m_config.hotKey);
    m_statusMenu.loadIcon();
}

void AppDelegate::loadConfig()
{
    AppLogger::info(u"Loading config."_s);
    try {
        const auto [config, createdTemplate] = AppConfig::loadOrCreateTemplate();
        m_config = config;
        AppLogger::info("Config loaded. createdTemplate="_L1 + flagText(createdTemplate)
                        + QLatin1Char(' ') + keyFlags(m_config));
    } catch (...) {
        m_isConfigUnreadable = true;
        AppLogger::error(u"Config load failed."_s, std::current_exception());
    }
}

// Whoever wrote the file can still read it: it holds their keys and their dictionary.
void AppDelegate::setUnreadableConfigAside()
{
    if (!m_isConfigUnreadable)
        return;
    const auto path = AppConfig::setUnreadableAside();
    m_isConfigUnreadable = false;
    if (!path.isEmpty())
        AppLogger::warning("Unreadable config set aside. path="_L1 + path);
}

void AppDelegate::updateAPIKeys(const QString &doubaoAPIKey, const QString &deepSeekAPIKey)
{
    m_config.volcengine.apiKey = doubaoAPIKey;
    m_config.deepSeek.apiKey = deepSeekAPIKey;
    saveConfig("API keys saved. "_L1 + keyFlags(m_config), u"API key save failed."_s);
}

void AppDelegate::updateHotKey(const HotKeyConfig &hotKey)
{
    m_config.hotKey = hotKey;
    if (saveConfig("Hotkey saved. displayName="_L1 + hotKey.displayName, u"Hotkey save failed."_s))
        m_globalHotKeys.registerHotKey();
}

void AppDelegate::updatePromptSettings(const PromptSettings &prompts, const QString &promptText)
{
    m_config.prompts = prompts;
    m_config.polishPrompt = promptText;
    saveConfig("Prompt settings saved. selectedID="_L1 + prompts.selectedID,
               u"Prompt settings save failed."_s);
}

void AppDelegate::updatePersonalDictionary(const PersonalDictionaryConfig &personalDictionary)
{
    m_config.personalDictionary = personalDictionary;
    saveConfig("Personal dictionary saved. terms="_L1
                   + QString::number(personalDictionary.terms.size()),
               u"Personal dictionary save failed."_s);
}

// Returns whether the settings reached the disk; a failure is shown to the user.
bool AppDelegate::saveConfig(const QString &success, const QString &failure)
{
    try {
        setUnreadableConfigAside();
        AppConfig::save(m_config);
    } catch (...) {
        const auto error = std::current_exception();
        AppLogger::error(failure, error);
        m_session.showError(error);
        return false;
    }
    AppLogger::info(success);
    return true;
}

MainWindowController &AppDelegate::mainWindow()
{
    if (m_mainWindowController)
        return *m_mainWindowController;
    Appearance::install();
    m_mainWindowController = std::make_unique<MainWindowController>(
        m_mainQueue, m_historyStore, m_backends.keyCharacters, windowCallbacks());
    return *m_mainWindowController;
}

void AppDelegate::showGettingStarted()
{
    mainWindow().show(m_config, MainWindowPage::GettingStarted);
    m_backends.focusReturn->takeFocus();
}

void AppDelegate::promptForAccessibilityPermissionIfNeeded()
{
    m_backends.keyboard->requestTrust();
    if (m_backends.keyboard->isTrusted())
        return;
    AppLogger::warning(u"Accessibility permission missing."_s);
    m_mainQueue.postAfter(permissionCheckDelay, [this] {
        if (m_backends.keyboard->isTrusted())
            return;
        openAccessibilityPermissionSettings();
        m_session.showOverlayMessage(OverlayMessages::permissionNeeded());
    });
}

DictationServices AppDelegate::dictationServices()
{
    return {
        .openConnections = [this](const AppConfig &config) { openConnections(config); },
        .transcribe =
            [this](const AppConfig &config, const QUrl &audioURL) {
                return VolcengineFlashASR(config.volcengine, config.personalDictionary, m_http)
                    .transcribe(audioURL);
            },
        .polish =
            [this](const AppConfig &config, const QString &prompt, const QString &transcript) {
                return DeepSeekPolisher(config.deepSeek, prompt, m_http).polish(transcript);
            },
        .paste =
            [this](const AppConfig &config, const QString &text, PasteDelivery::Handler delivered) {
                AutoPaster(config.paste,
                           {*m_backends.keyboard, *m_backends.clipboard, m_pasteTurns, m_mainQueue})
                    .paste(text, std::move(delivered));
            },
        .returnFocus = [this] { return m_backends.focusReturn->returnFocus(); },
        .copy = [this](const QString &text) { ClipboardWriter::copy(text, *m_backends.clipboard); },
    };
}

void AppDelegate::openConnections(const AppConfig &config)
{
    for (const auto &endpoint : {VolcengineFlashASR::endpoint(config.volcengine),
                                 DeepSeekPolisher::endpoint(config.deepSeek)})
        if (endpoint)
            m_http.openAhead(*endpoint);
}

GlobalHotKeys::Callbacks AppDelegate::hotKeyCallbacks()
{
    return {
        .hotKey = [this]() -> const HotKeyConfig & { return m_config.hotKey; },
        .toggleRecording = [this] { m_session.toggleRecording(); },
        .cancelRecording = [this] { m_session.cancelRecording(); },
        .setToolTip = [this](const QString &text) { m_statusMenu.setToolTip(text); },
        .isKeyboardHeld = [this] { return m_backends.keyboard->isHeldByAnother(); },
        .refused = [this](const HotKeyConfig &hotKey,
                          const QString &owner) { showAlert(hotKeyTaken(hotKey, owner), [] {}); },
    };
}

StatusMenuActions AppDelegate::menuActions()
{
    return {
        .openAPIConfiguration = [this] { showGettingStarted(); },
        .openLogFolder = [] { AppLogger::openLogFolder(); },
        .quit = [] { QCoreApplication::quit(); },
        .activate = [this] { applicationShouldHandleReopen(); },
    };
}

MainWindowCallbacks AppDelegate::windowCallbacks()
{
    return {
        .onAPIKeysSave =
            [this](const QString &doubaoAPIKey, const QString &deepSeekAPIKey) {
                updateAPIKeys(doubaoAPIKey, deepSeekAPIKey);
            },
        .onHotKeyChange = [this](const HotKeyConfig &hotKey) { updateHotKey(hotKey); },
        .onHotKeyCaptureChange =
            [this](bool isCapturing) {
                if (isCapturing)
                    m_globalHotKeys.suspendHotKey();
                else
                    m_globalHotKeys.resumeHotKey();
            },
        .onPromptSettingsChange =
            [this](const PromptSettings &prompts, const QString &text) {
                updatePromptSettings(prompts, text);
            },
        .onPersonalDictionaryChange =
            [this](const PersonalDictionaryConfig &dictionary) {
                updatePersonalDictionary(dictionary);
            },
        .onPasteHistory = [this](const QString &text) { m_session.pasteHistoryText(text); },
        .onCopyHistory =
            [this](const QString &text) { ClipboardWriter::copy(text, *m_backends.clipboard); },
        .onOpenLogFolder = &AppLogger::openLogFolder,
    };
}

void AppDelegate::updateStatusTitle(QStringView word)
{
    m_statusMenu.setToolTip(statusToolTip(m_config.hotKey, word));
}

void AppDelegate::registerEscapeCancelHotKey()
{
    m_globalHotKeys.registerEscapeCancelHotKey();
    m_lockWatch.watchKeyboard(true); // a recording runs
}

void AppDelegate::unregisterEscapeCancelHotKey()
{
    m_globalHotKeys.unregisterEscapeCancelHotKey();
    m_lockWatch.watchKeyboard(false);
}

void AppDelegate::refreshMainWindow()
{
    mainWindow().refreshIfVisible(m_config);
}

void AppDelegate::openAccessibilityPermissionSettings()
{
    AppLogger::info(u"Opening accessibility permission settings."_s);
    InputPermissionHelp::open();
}

void AppDelegate::showAlert(const QString &text, std::function<void()> dismissed)
{
    ::showAlert(text, std::move(dismissed));
}
