// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clipboard.h"
#include "FocusReturn.h"
#include "FocusedApplication.h"
#include "MainQueue.h"
#include "OverlaySurface.h"
#include "SyntheticKeyboard.h"

#include <QString>

#include <functional>
#include <memory>

// The names of the protocols by which things are done, each "none" when the compositor has no such.
struct WaylandWays
{
    QString clipboard;
    QString keys;
    QString overlay;
    QString windows; // which there are and which has the focus
};

// What a Wayland compositor offers to a program that has no window in front. What it makes must not
// outlive it. Main thread only.
class WaylandDesktop
{
public:
    WaylandDesktop() = default;
    virtual ~WaylandDesktop();
    WaylandDesktop(const WaylandDesktop &) = delete;
    WaylandDesktop &operator=(const WaylandDesktop &) = delete;

    [[nodiscard]] virtual WaylandWays ways() const = 0;
    // Whether the clipboard can be set for any application and keys be posted to it, unless
    // somebody else posts them.
    [[nodiscard]] virtual bool canPaste(bool hasOtherKeyboard) const = 0;
    // Listens to the compositor from now on. Should it die, `lost` is called, on any thread.
    virtual void start(MainQueue &mainQueue, std::function<void()> lost) = 0;
    // Null when the compositor lets nobody set the clipboard unasked.
    [[nodiscard]] virtual std::unique_ptr<Clipboard> makeClipboard() = 0;
    // Null when the compositor lets nobody press keys. Without a finder it is the compositor that
    // is asked for the application in front.
    [[nodiscard]] virtual std::unique_ptr<SyntheticKeyboard>
    makeKeyboard(FocusedApplication::Finder focused) = 0;
    // Finds the window that had the focus before ours where the compositor tells of windows, else
    // none.
    [[nodiscard]] virtual std::unique_ptr<FocusReturn> makeFocusReturn() = 0;
    // Null when the compositor lets nobody place a surface.
    [[nodiscard]] virtual std::unique_ptr<OverlaySurface> makeOverlay() = 0;
    // What a key types without modifiers on the seat's keyboard; empty when it types nothing by
    // itself, or the seat has no keyboard.
    [[nodiscard]] virtual QString charactersTypedBy(quint32 virtualKeyCode) const = 0;
};
