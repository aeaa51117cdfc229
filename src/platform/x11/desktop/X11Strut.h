// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QRect>
#include <QSize>

#include <vector>

// What a panel reserves of the whole display.
class X11Strut final
{
public:
    // The values of its _NET_WM_STRUT_PARTIAL; nothing is reserved where there are not twelve.
    explicit X11Strut(const std::vector<quint32> &property);

    // The part of it on this monitor: at each edge at least 0, and less than the monitor.
    [[nodiscard]] QMargins reservedOf(const QRect &monitor, const QSize &display) const;

private:
    // The depth at each edge, then from where to where along that edge; in the property's order.
    struct Extents
    {
        int left, right, top, bottom;
        int leftStart, leftEnd, rightStart, rightEnd, topStart, topEnd, bottomStart, bottomEnd;
    };

    Extents m_extents{};
};
