// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <semaphore>

// Lets one paste at a time have the clipboard and the keyboard. Any thread.
class PasteTurns final
{
public:
    struct Release
    {
        void operator()(std::binary_semaphore *turns) const { turns->release(); }
    };
    // Ends with the object, which must not outlive the turns.
    using Turn = std::unique_ptr<std::binary_semaphore, Release>;

    // Returns when no other turn is left.
    [[nodiscard]] Turn take()
    {
        m_isFree.acquire();
        return Turn(&m_isFree);
    }

private:
    std::binary_semaphore m_isFree{1};
};
