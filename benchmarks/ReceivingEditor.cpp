// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ReceivingEditor.h"

#include <QEventLoop>
#include <QTimer>

#include <functional>
#include <stdexcept>

namespace {

bool runUntil(const std::function<bool()> &condition)
{
    QEventLoop loop;
    bool isOver = false;
    QTimer::singleShot(std::chrono::seconds(20), &loop, [&isOver] { isOver = true; });
    while (!condition() && !isOver)
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    return condition();
}

} // namespace

ReceivingEditor::ReceivingEditor()
{
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_arrivedAt)
            m_arrivedAt = Clock::now();
    });
    show();
    activateWindow();
    if (!runUntil([this] { return hasFocus(); }))
        throw std::runtime_error("the editor does not get the focus");
}

Instant ReceivingEditor::waitForText(const QString &expected)
{
    if (!runUntil([this] { return m_arrivedAt.has_value(); }))
        throw std::runtime_error("no text arrived in the editor");
    if (toPlainText() != expected)
        throw std::runtime_error("the wrong text arrived: " + toPlainText().toStdString());
    const auto arrivedAt = *m_arrivedAt;
    clear();
    m_arrivedAt.reset();
    return arrivedAt;
}
