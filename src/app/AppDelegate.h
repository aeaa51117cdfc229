// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppConfig.h"
#include "AudioRecorder.h"
#include "Backends.h"
#include "BackgroundTasks.h"
#include "DictationHost.h"
#include "DictationSession.h"
#include "GlobalHotKeys.h"
#include "HistoryStore.h"
#include "HttpSession.h"
#include "InstanceChannel.h"
#include "LaunchMode.h"
#include "LockWatch.h"
#include "MainWindowController.h"
#include "PasteTurns.h"
#include "SingleInstanceGuard.h"
#include "StatusMenu.h"
#include "VoiceOverlayController.h"

// The application controller: owns the settings and every long-lived object, starts and ends the
// application in order, and reacts to the menu and the main window. Main thread only.
class AppDelegate final : public DictationHost
{
public:
    // Builds the objects; nothing visible happens before applicationDidFinishLaunching(). The queue
    // must outlive them.
    AppDelegate(MainQueue &mainQueue, Backends backends);
    ~AppDelegate() override;

    // Runs the launch. A duplicate launch hands over to the running instance and quits, or takes
    // its place when it was on its way out.
    void applicationDidFinishLaunching(LaunchMode mode = LaunchMode::ShowsWindow);
    // The user opened the application again, by its tray icon.
    void applicationShouldHandleReopen();
    // Ends everything promptly; the application object must quit afterwards.
    void applicationWillTerminate();

    // Settings handlers: each changes the settings in memory, then saves them; when saving fails
    // the error is shown and the change stays in force for this run.
    void updateAPIKeys(const QString &doubaoAPIKey, const QString &deepSeekAPIKey);
    void updateHotKey(const HotKeyConfig &hotKey);
    void updatePromptSettings(const PromptSettings &prompts, const QString &promptText);
    void updatePersonalDictionary(const PersonalDictionaryConfig &personalDictionary);

    // The main window, made on first use.
    [[nodiscard]] MainWindowController &mainWindow();

    [[nodiscard]] const AppConfig &config() const override { return m_config; }
    void updateStatusTitle(QStringView word) override;
    void registerEscapeCancelHotKey() override;
    void unregisterEscapeCancelHotKey() override;
    void refreshMainWindow() override;
    void openAccessibilityPermissionSettings() override;
    void showAlert(const QString &text, std::function<void()> dismissed) override;

private:
    void launch();
    void handOver();
    InstanceAnswer requestExistingInstanceToShow();
    void takeOverOrHandOver();
    void installDuplicateLaunchObserver();
    bool handleInstanceCommand(InstanceCommand command, InstanceChannel::Time askedAt);
    void handleDuplicateLaunchRequest();
    void configureStatusMenu();
    void loadConfig();
    void setUnreadableConfigAside();
    bool saveConfig(const QString &success, const QString &failure);
    void showGettingStarted();
    void promptForAccessibilityPermissionIfNeeded();
    void openConnections(const AppConfig &config);

    [[nodiscard]] DictationServices dictationServices();
    [[nodiscard]] GlobalHotKeys::Callbacks hotKeyCallbacks();
    [[nodiscard]] StatusMenuActions menuActions();
    [[nodiscard]] MainWindowCallbacks windowCallbacks();

    // In building order: what stands further down uses what stands above.
    AppConfig m_config;
    PasteTurns m_pasteTurns;
    MainQueue &m_mainQueue;
    BackgroundTasks m_tasks;
    HttpSession m_http;
    Backends m_backends;
    SingleInstanceGuard m_singleInstanceGuard;
    InstanceChannel m_instanceChannel;
    AudioRecorder m_recorder;
    VoiceOverlayController m_overlay;
    HistoryStore m_historyStore;
    StatusMenu m_statusMenu;
    GlobalHotKeys m_globalHotKeys;
    DictationSession m_session;
    LockWatch m_lockWatch;
    std::unique_ptr<MainWindowController> m_mainWindowController;
    LaunchMode m_launchMode = LaunchMode::ShowsWindow;
    // Runs while a duplicate launch waits for the running instance's answer.
    std::unique_ptr<RepeatingTimer> m_handOverTimer;
    // The file held something that is not a configuration: the first save sets it aside.
    bool m_isConfigUnreadable = false;
    bool m_hasTerminated = false;
};
