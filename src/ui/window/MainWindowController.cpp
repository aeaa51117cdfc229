// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MainWindowController.h"

#include "ContactPage.h"
#include "DictionaryPage.h"
#include "GettingStartedPage.h"
#include "HistoryPage.h"
#include "MainWindow.h"
#include "UnusedMemory.h"

#include <QPixmapCache>
#include <QScreen>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Who opens the window again soon finds it as it was.
constexpr auto releaseDelay = 30s;

} // namespace

MainWindowController::MainWindowController(MainQueue &queue,
                                           HistoryStore &store,
                                           HotKeyCaptureButton::KeyCharacters keyCharacters,
                                           MainWindowCallbacks callbacks)
    : m_queue(queue)
    , m_store(store)
    , m_keyCharacters(std::move(keyCharacters))
    , m_callbacks(std::move(callbacks))
{}

MainWindowController::~MainWindowController() = default;

void MainWindowController::show(const AppConfig &config, MainWindowPage page)
{
    const bool wasVisible = isVisible();
    if (!m_window)
        buildWindow();
    load(config);
    m_window->switchTo(page);
    if (!wasVisible)
        m_window->center();
    m_window->bringToFront();
}

void MainWindowController::refreshIfVisible(const AppConfig &config)
{
    if (!isVisible())
        return;
    load(config);
    if (m_window->currentPage() == MainWindowPage::Clipboard)
        m_historyPage->reloadHistory();
}

void MainWindowController::keepSize()
{
    if (isVisible())
        m_size.keep(m_window->ownSize());
    m_size.drain();
}

bool MainWindowController::isVisible() const
{
    return m_window && m_window->isVisible();
}

bool MainWindowController::hasVisibleWindow() const
{
    return isVisible() || m_tutorialWindowController.isVisible();
}

void MainWindowController::buildWindow()
{
    m_gettingStartedPage = new GettingStartedPage(
        m_callbacks, m_deletions, m_tutorialWindowController, m_keyCharacters);
    m_historyPage = new HistoryPage(m_store, m_callbacks, m_deletions);
    m_dictionaryPage = new DictionaryPage(m_callbacks, m_deletions);
    QList<MainWindowItem> items{
        {MainWindowPage::GettingStarted,
         u"开始使用"_s,
         u"house"_s,
         m_gettingStartedPage,
         [page = m_gettingStartedPage] { page->scrollToTop(); }},
        {MainWindowPage::Clipboard,
         u"剪贴板"_s,
         u"doc.on.clipboard"_s,
         m_historyPage,
         [page = m_historyPage] { page->reloadHistory(); }},
        {MainWindowPage::Dictionary,
         u"词库"_s,
         u"text.book.closed"_s,
         m_dictionaryPage,
         [page = m_dictionaryPage] { page->reloadDictionaryList(); }},
        {MainWindowPage::Contact,
         u"联系作者"_s,
         u"person.crop.circle"_s,
         new ContactPage(m_callbacks),
         [] {}},
    };
    m_window =
        std::make_unique<MainWindow>(std::move(items), m_deletions, [this] { windowClosed(); });
    if (const auto size = m_size.size())
        m_window->resize(size->boundedTo(m_window->screen()->availableSize()));
}

// Costs little when nothing has changed: a dictation waits for it before its text is pasted.
void MainWindowController::load(const AppConfig &config)
{
    m_gettingStartedPage->load(config);
    m_dictionaryPage->load(config.personalDictionary);
}

void MainWindowController::windowClosed()
{
    m_deletions.clear();
    m_size.keep(m_window->ownSize());
    m_queue.postAfter(releaseDelay, [this, closing = ++m_closings] {
        if (closing == m_closings && !isVisible())
            release();
    });
}

void MainWindowController::release()
{
    m_window->releaseSurface();
    m_tutorialWindowController.release();
    QPixmapCache::clear();
    releaseUnusedMemory();
}
