// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PasteDelivery.h"

PasteDelivery::PasteDelivery(PasteTurns::Turn turn, Handler handler)
    : m_turn(std::move(turn))
    , m_handler(std::move(handler))
{}

void PasteDelivery::begin()
{
    m_begin = Clock::now();
}

void PasteDelivery::noteFetch()
{
    const auto begin = m_begin.load();
    if (begin != Clock::time_point::max())
        end(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin));
}

void PasteDelivery::giveUp()
{
    end(std::nullopt);
}

void PasteDelivery::end(std::optional<std::chrono::milliseconds> fetchedAfter)
{
    if (!m_turn)
        return;
    m_turn.reset();
    m_handler(fetchedAfter);
}
