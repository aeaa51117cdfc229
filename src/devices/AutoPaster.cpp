// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AutoPaster.h"

#include "HushwireError.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// A program that copied something in the same moment is newer than the main thread knows, and the
// display refuses us until the main thread has heard of it.
constexpr int attempts = 10;
constexpr auto betweenAttempts = 10ms;

// Makes the text what this selection holds; whether it does, as the display tells it.
bool place(const QString &text, QClipboard::Mode mode)
{
    auto *const data = new QMimeData; // the clipboard's from here on
    data->setText(text);
    QGuiApplication::clipboard()->setMimeData(data, mode);
    return QGuiApplication::clipboard()->mimeData(mode) == data;
}

// The chord for terminals reads the primary selection in most of them, the clipboard in some.
bool offer(const QString &text, PasteChord chord)
{
    return place(text, QClipboard::Clipboard)
        && (chord == PasteChord::ControlV || place(text, QClipboard::Selection));
}

} // namespace

AutoPaster::AutoPaster(const PasteConfig &config, SyntheticKeyboard &keyboard, MainQueue &mainQueue)
    : m_config(config)
    , m_keyboard(keyboard)
    , m_mainQueue(mainQueue)
{}

void AutoPaster::paste(const QString &text) const
{
    if (!m_keyboard.isTrusted())
        throw HushwireError::permissionMissing(u"需要辅助功能权限"_s);
    const auto chord = m_keyboard.pasteChordOfFocusedWindow();
    const auto offerOnMainThread = [&] {
        bool isOffered = false;
        m_mainQueue.runAndWait([&] { isOffered = offer(text, chord); });
        return isOffered;
    };
    bool isOffered = offerOnMainThread();
    for (int i = 1; i < attempts && !isOffered; ++i) {
        std::this_thread::sleep_for(betweenAttempts);
        isOffered = offerOnMainThread();
    }
    if (!isOffered)
        throw HushwireError::pasteFailed(u"写入系统剪贴板失败。"_s);
    if (!m_keyboard.post(chord))
        throw HushwireError::pasteFailed(u"无法创建自动粘贴事件。"_s);
}
