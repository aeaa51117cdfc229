// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

// The selections that can hold a text for other applications.
enum class ClipboardSelections {
    Clipboard,
    ClipboardAndPrimary,
};

// The desktop's clipboard, whichever application has the focus. Main thread only.
class Clipboard
{
public:
    using FetchHandler = std::function<void()>;

    Clipboard() = default;
    virtual ~Clipboard();
    Clipboard(const Clipboard &) = delete;
    Clipboard &operator=(const Clipboard &) = delete;

    // Makes the text what the selections hold, as their only representation. False when the desktop
    // refuses, as it may when another program has copied something at the same moment. Until the
    // next offer the handler is called, from the event loop, whenever the application that has the
    // focus fetches the text; where the desktop does not tell who fetches, whenever anybody does.
    [[nodiscard]] virtual bool
    offer(const QString &text, ClipboardSelections selections, FetchHandler fetched = {}) = 0;
    // Whether somebody is known to keep what it holds when this application ends.
    [[nodiscard]] virtual bool isKeptAfterUs() const = 0;
    // Before the application ends: leaves what it has offered to whoever keeps it from then on, as
    // far as somebody does. Returns within 300 ms.
    virtual void handOver() = 0;
};
