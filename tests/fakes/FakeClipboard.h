// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clipboard.h"

#include <utility>

// A clipboard whose text the test fetches.
class FakeClipboard final : public Clipboard
{
public:
    [[nodiscard]] bool
    offer(const QString &offered, ClipboardSelections, FetchHandler fetched = {}) override
    {
        --refusals;
        if (refusals >= 0)
            return false;
        text = offered;
        m_fetched = std::move(fetched);
        return true;
    }
    [[nodiscard]] bool isKeptAfterUs() const override { return false; }
    void handOver() override { ++handOvers; }

    // The application in front fetches the text.
    void fetch() const { m_fetched(); }

    QString text = QStringLiteral("before");
    int refusals = 0; // how many of the next offers fail
    int handOvers = 0;

private:
    FetchHandler m_fetched;
};
