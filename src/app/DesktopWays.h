// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

struct WaylandWays;

// By which of a desktop's means each thing is done that a dictation needs, and what they lack.
struct DesktopWays
{
    struct Part
    {
        QString name; // a word, for the log
        QString title; // a few words, for people
        QString way; // what does it, by its technical name; "none" when nothing does
        QString limit; // what cannot be had by it, in a sentence; empty where nothing is lacking
    };

    // A display of X. `canPressKeys`: it has XTEST.
    [[nodiscard]] static DesktopWays ofX11(bool canPressKeys);
    // A Wayland desktop that is reached through XWayland. `hotKeys` names who gives hotkeys, `keys`
    // what presses keys.
    [[nodiscard]] static DesktopWays ofXWayland(const QString &hotKeys, const QString &keys);
    // A Wayland desktop. `hotKeys` likewise, or "none".
    [[nodiscard]] static DesktopWays ofWayland(const QString &hotKeys, const WaylandWays &ways);

    // A line for the log.
    [[nodiscard]] QString summary() const;

    QString session;
    QList<Part> parts;
};
