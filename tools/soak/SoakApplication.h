// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "TrayPanel.h"
#include "WrenfoldApplication.h"
#include "X11Connection.h"

#include <array>
#include <memory>

class Desktop;
class SoakLog;

// The application under test through all its launches: how it is started and ended, what it shows,
// and that it does not grow.
class SoakApplication final
{
public:
    SoakApplication(Desktop &desktop, SoakLog &log);

    // Starts it and has it show each of its pages.
    void launch();
    // Ends it by a signal, which must be obeyed and be clean; then another launch.
    void relaunch(int signal);
    // Opens its window, shows each page and closes it.
    void showPages();

    // Fails unless it says within a second that it is ready for the next press.
    void requireReady() const;
    // Fails unless its overlay is gone soon; what it says may stay for a moment.
    void requireNoOverlay() const;
    // Looks after every dictation at what it takes.
    void countDictation() { m_figures << figures(); }
    // Fails when this launch, if it was a long one, takes 2 % more than when it was warm.
    void requireNoGrowth();
    // What it took in the longest of its launches, warm and at the end.
    [[nodiscard]] QString growth() const { return m_growth; }

private:
    using Figures = std::array<qint64, 3>; // KB of its own in memory, descriptors, threads
    [[nodiscard]] Figures figures() const;
    [[nodiscard]] bool isReady() const;

    Desktop &m_desktop;
    SoakLog &m_log;
    TrayPanel m_panel;
    X11Connection m_connection{[](const void *) {}};
    std::unique_ptr<WrenfoldApplication> m_application;
    QList<Figures> m_figures; // after each dictation of this launch
    qsizetype m_longest = 0; // dictations of the launch that m_growth tells of
    QString m_growth;
};
