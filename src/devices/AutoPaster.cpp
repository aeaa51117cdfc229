// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AutoPaster.h"

#include "ClipboardWriter.h"
#include "HushwireError.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace {

// Whether the text is now on the clipboard; for the other chord on the primary selection too.
bool offer(const QString &text, PasteChord chord)
{
    auto *const clipboard = QGuiApplication::clipboard();
    ClipboardWriter::copy(text);
    if (!clipboard->ownsClipboard())
        return false;
    if (chord == PasteChord::ControlV || !clipboard->supportsSelection())
        return true;
    clipboard->setText(text, QClipboard::Selection);
    return clipboard->ownsSelection();
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
    bool isOffered = false;
    m_mainQueue.runAndWait([&] { isOffered = offer(text, chord); });
    if (!isOffered)
        throw HushwireError::pasteFailed(u"写入系统剪贴板失败。"_s);
    if (!m_keyboard.post(chord))
        throw HushwireError::pasteFailed(u"无法创建自动粘贴事件。"_s);
}
