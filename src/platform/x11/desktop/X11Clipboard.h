// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clipboard.h"

#include <QAbstractNativeEventFilter>

#include <memory>

// The clipboard and the primary selection of X11. Who fetches is known by the window that asks.
class X11Clipboard final : public Clipboard, private QAbstractNativeEventFilter
{
public:
    X11Clipboard();
    ~X11Clipboard() override;

    [[nodiscard]] bool
    offer(const QString &text, ClipboardSelections selections, FetchHandler fetched = {}) override;
    void handOver() override;

private:
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;

    void noteGiven();

    FetchHandler m_fetched;
    bool m_isFocusedClientAsking = false;
    // Gone with this object, which what it has offered may outlive.
    std::shared_ptr<char> m_lifetime = std::make_shared<char>();
};
