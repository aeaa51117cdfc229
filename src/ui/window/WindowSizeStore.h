// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SerialQueue.h"

#include <QSize>

#include <optional>

// The size that the main window was left with, kept across launches in "window.json" among the
// user's other files. Main thread only.
class WindowSizeStore final
{
public:
    // Absent while no size was kept; a file that holds something else counts as none.
    [[nodiscard]] std::optional<QSize> size();
    // Keeps the size; it is written on a thread of its own. One that cannot be written is lost.
    void keep(const QSize &size);
    // Returns when what was kept is written, after 300 ms at the latest.
    void drain();

private:
    std::optional<QSize> m_size;
    bool m_isRead = false;
    SerialQueue m_queue{"local.wrenfold.window"};
};
