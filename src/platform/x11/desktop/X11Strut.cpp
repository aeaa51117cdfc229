// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11Strut.h"

#include <algorithm>

namespace {

// A display is no larger; what is computed with it stays far from the limits of a number.
constexpr quint32 largestExtent = 0xffff;

// Reaching from edge to edge of a monitor, it belongs to a panel on the monitor behind.
int depth(int reserved, int whole)
{
    return reserved < whole ? reserved : 0;
}

} // namespace

X11Strut::X11Strut(const std::vector<quint32> &property)
{
    if (property.size() != 12)
        return;
    const auto v = [&](size_t index) {
        return static_cast<int>(std::min(property[index], largestExtent));
    };
    m_extents = {v(0), v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), v(9), v(10), v(11)};
}

QMargins X11Strut::reservedOf(const QRect &monitor, const QSize &display) const
{
    const auto within = [&](int x, int y, int endX, int endY) {
        return (QRect(QPoint(x, y), QPoint(endX, endY)) & monitor).size();
    };
    const auto &[left,
                 right,
                 top,
                 bottom,
                 leftStart,
                 leftEnd,
                 rightStart,
                 rightEnd,
                 topStart,
                 topEnd,
                 bottomStart,
                 bottomEnd] = m_extents;
    const int lastX = display.width() - 1;
    const int lastY = display.height() - 1;
    return {depth(within(0, leftStart, left - 1, leftEnd).width(), monitor.width()),
            depth(within(topStart, 0, topEnd, top - 1).height(), monitor.height()),
            depth(within(lastX + 1 - right, rightStart, lastX, rightEnd).width(), monitor.width()),
            depth(within(bottomStart, lastY + 1 - bottom, bottomEnd, lastY).height(),
                  monitor.height())};
}
