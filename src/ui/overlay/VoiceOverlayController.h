// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MainQueue.h"
#include "OverlaySurface.h"
#include "VoiceOverlayMode.h"

#include <QRect>

#include <functional>
#include <memory>
#include <optional>

class QScreen;
class VoiceOverlayView;

// Shows and hides the floating overlay at the bottom of the screen with the pointer. It never takes
// the keyboard focus, and clicks go through it to what lies below.
class VoiceOverlayController final
{
public:
    // What is asked of the desktop at each show.
    struct Surroundings
    {
        std::function<bool()> hasCompositor; // whether windows can be translucent
        std::function<QRect(const QScreen &)> workArea; // what panels leave free of the screen
        // With a surface, pictures of the panel are shown there instead of the panel itself.
        OverlaySurface *surface = nullptr;
    };

    VoiceOverlayController(MainQueue &queue, Surroundings surroundings);
    ~VoiceOverlayController();
    VoiceOverlayController(const VoiceOverlayController &) = delete;
    VoiceOverlayController &operator=(const VoiceOverlayController &) = delete;

    // Builds the panel and draws it once unseen: loading the fonts takes some 40 ms, which the
    // first show would otherwise wait for.
    void prepare();
    // Shows the mode, in front, on the screen that now has the pointer.
    void show(const VoiceOverlayMode &mode);
    void hide();
    // The input level, 0 to 1, for the waveform; at best thirty times a second.
    void updateLevel(double level);

    // What is on the screen now.
    [[nodiscard]] std::optional<VoiceOverlayMode> shownMode() const;

private:
    void buildPanel();
    void positionPanel();
    void updateMask();
    void showPanel();
    void showPicture();

    MainQueue &m_queue;
    const Surroundings m_surroundings;
    std::unique_ptr<VoiceOverlayView> m_panel; // built by prepare() or the first show
};
