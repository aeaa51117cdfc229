// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MainWindowController.h"

#include "ContactPage.h"
#include "DictionaryPage.h"
#include "ForwardingCallback.h"
#include "GettingStartedPage.h"
#include "HistoryPage.h"
#include "MainWindow.h"
#include "WindowPlacement.h"

MainWindowController::MainWindowController(HistoryStore &store,
                                           HotKeyCaptureButton::KeyCharacters keyCharacters)
    : m_store(store)
    , m_keyCharacters(std::move(keyCharacters))
{}

MainWindowController::~MainWindowController() = default;

void MainWindowController::show(const AppConfig &config, MainWindowPage page)
{
    const bool wasVisible = isVisible();
    if (!m_window)
        buildWindow();
    load(config);
    switchTo(page);
    if (!wasVisible)
        WindowPlacement::center(*m_window);
    WindowPlacement::bringToFront(*m_window);
}

void MainWindowController::refreshIfVisible(const AppConfig &config)
{
    if (!isVisible())
        return;
    load(config);
    if (m_window->currentPage() == MainWindowPage::Clipboard)
        m_historyPage->reloadHistory();
}

bool MainWindowController::isVisible() const
{
    return m_window && m_window->isVisible();
}

void MainWindowController::buildWindow()
{
    m_gettingStartedPage = new GettingStartedPage(m_keyCharacters);
    m_historyPage = new HistoryPage(m_store);
    m_dictionaryPage = new DictionaryPage;
    m_contactPage = new ContactPage;
    m_window = std::make_unique<MainWindow>(
        QList<QWidget *>{m_gettingStartedPage, m_historyPage, m_dictionaryPage, m_contactPage},
        [this](MainWindowPage page) { switchTo(page); });
    connectPages();
}

void MainWindowController::connectPages()
{
    m_gettingStartedPage->onAPIKeysSave = forwardingTo(onAPIKeysSave);
    m_gettingStartedPage->onHotKeyChange = forwardingTo(onHotKeyChange);
    m_gettingStartedPage->onHotKeyCaptureChange = forwardingTo(onHotKeyCaptureChange);
    m_gettingStartedPage->onPromptSettingsChange = forwardingTo(onPromptSettingsChange);
    m_gettingStartedPage->onShowTutorial = [this](const QString &title, const QString &body) {
        m_tutorialWindowController.show(title, body);
    };
    m_historyPage->onPasteHistory = forwardingTo(onPasteHistory);
    m_dictionaryPage->onPersonalDictionaryChange = forwardingTo(onPersonalDictionaryChange);
    m_contactPage->onOpenLogFolder = forwardingTo(onOpenLogFolder);
}

// Costs little when nothing has changed: a dictation waits for it before its text is pasted.
void MainWindowController::load(const AppConfig &config)
{
    m_gettingStartedPage->load(config);
    m_dictionaryPage->load(config.personalDictionary);
}

void MainWindowController::switchTo(MainWindowPage page)
{
    m_window->setCurrentPage(page);
    switch (page) {
    case MainWindowPage::GettingStarted:
        m_gettingStartedPage->scrollToTop();
        break;
    case MainWindowPage::Clipboard:
        m_historyPage->reloadHistory();
        break;
    case MainWindowPage::Dictionary:
        m_dictionaryPage->reloadDictionaryList();
        break;
    case MainWindowPage::Contact:
        break;
    }
}
