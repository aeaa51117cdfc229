// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

// What the user has deleted in a window and can have back, the last first.
class DeletionUndo final
{
public:
    // The function brings back what has just been deleted.
    void add(std::function<void()> restore) { m_restores.push_back(std::move(restore)); }

    // Does nothing when there is nothing to bring back.
    void undoLast()
    {
        if (m_restores.empty())
            return;
        const auto restore = std::move(m_restores.back());
        m_restores.pop_back();
        restore();
    }

    void clear() { m_restores.clear(); }

private:
    std::vector<std::function<void()>> m_restores;
};
