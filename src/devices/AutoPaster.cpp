// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AutoPaster.h"

#include "HushwireError.h"

#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// A program that copied something in the same moment is newer than the main thread knows, and the
// display refuses us until the main thread has heard of it.
constexpr int attempts = 10;
constexpr auto betweenAttempts = 10ms;
// How long the application in front is given to fetch the text.
constexpr auto longestDelivery = 1000ms;

// How long an open menu is given to close.
constexpr auto longestHold = 2000ms;
constexpr auto betweenLooks = 20ms;

// The chord for terminals reads the primary selection in most of them, the clipboard in some.
ClipboardSelections selectionsReadBy(PasteChord chord)
{
    return chord == PasteChord::ControlV ? ClipboardSelections::Clipboard
                                         : ClipboardSelections::ClipboardAndPrimary;
}

} // namespace

AutoPaster::AutoPaster(const PasteConfig &config, const Desktop &desktop)
    : m_config(config)
    , m_desktop(desktop)
{}

void AutoPaster::paste(const QString &text, PasteDelivery::Handler delivered) const
{
    auto &keyboard = m_desktop.keyboard;
    if (!keyboard.isTrusted())
        throw HushwireError::permissionMissing(u"需要辅助功能权限"_s);
    const auto delivery =
        std::make_shared<PasteDelivery>(m_desktop.turns.take(), std::move(delivered));
    const auto chord = awaitChord();
    offer(text, chord, delivery);
    delivery->begin();
    if (!keyboard.post(chord))
        throw HushwireError::pasteFailed(u"无法创建自动粘贴事件。"_s);
    m_desktop.mainQueue.postAfter(longestDelivery, [delivery] { delivery->giveUp(); });
}

PasteChord AutoPaster::awaitChord() const
{
    const auto deadline = std::chrono::steady_clock::now() + longestHold;
    auto chord = m_desktop.keyboard.pasteChordOfFocusedWindow();
    while (!chord) {
        if (std::chrono::steady_clock::now() > deadline)
            throw HushwireError::pasteFailed(u"键盘被其他程序占用。"_s);
        std::this_thread::sleep_for(betweenLooks);
        m_desktop.mainQueue.runAndWait([] {}); // the application may be quitting
        chord = m_desktop.keyboard.pasteChordOfFocusedWindow();
    }
    return *chord;
}

void AutoPaster::offer(const QString &text,
                       PasteChord chord,
                       const std::shared_ptr<PasteDelivery> &delivery) const
{
    // Only what waits for the delivery keeps it, so that it ends when the waiting does.
    const auto fetched = [delivery = std::weak_ptr(delivery)] {
        if (const auto alive = delivery.lock())
            alive->noteFetch();
    };
    bool isOffered = false;
    for (int i = 0; i < attempts && !isOffered; ++i) {
        if (i > 0)
            std::this_thread::sleep_for(betweenAttempts);
        m_desktop.mainQueue.runAndWait(
            [&] { isOffered = m_desktop.clipboard.offer(text, selectionsReadBy(chord), fetched); });
    }
    if (!isOffered)
        throw HushwireError::pasteFailed(u"写入系统剪贴板失败。"_s);
}
