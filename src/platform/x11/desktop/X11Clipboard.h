// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clipboard.h"
#include "X11Reach.h"

#include <QAbstractNativeEventFilter>

#include <memory>

// The clipboard and the primary selection of X11. Who fetches is known by the window that asks;
// under XWayland the compositor asks for the programs of Wayland, and only for the one with the
// focus.
class X11Clipboard final : public Clipboard, private QAbstractNativeEventFilter
{
public:
    explicit X11Clipboard(X11Reach reach = X11Reach::X);
    ~X11Clipboard() override;

    [[nodiscard]] bool
    offer(const QString &text, ClipboardSelections selections, FetchHandler fetched = {}) override;
    [[nodiscard]] bool isKeptAfterUs() const override;
    void handOver() override;

private:
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;

    void noteGiven();
    [[nodiscard]] bool isForProgramBeyondX();

    const X11Reach m_reach;
    FetchHandler m_fetched;
    // Of the request that is being answered.
    bool m_isFocusedClientAsking = false;
    bool m_isFocusBeyondX = false;
    bool m_isPrimaryWanted = false;
    // The compositor has the text of this offer.
    bool m_isKeptByCompositor = false;
    // Gone with this object, which what it has offered may outlive.
    std::shared_ptr<char> m_lifetime = std::make_shared<char>();
};
