// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Timings.h"

#include <QList>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace {

struct Stage
{
    const char *name;
    const char *key; // in the log's lines
    QList<int> milliseconds = {};
};

// The value behind a key in a line; nothing where it is not, or absent.
std::optional<int> valueIn(const QByteArray &line, const char *key)
{
    for (const auto &word : line.split(' ')) {
        const auto sign = word.indexOf('=');
        bool isNumber = false;
        const int value = word.mid(sign + 1).toInt(&isNumber);
        if (sign > 0 && word.first(sign) == key && isNumber && value >= 0)
            return value;
    }
    return {};
}

// Of sorted values, of which there is at least one.
int percentile(const QList<int> &values, double share)
{
    const auto rank = std::ceil(share * static_cast<double>(values.size()));
    return values[static_cast<qsizetype>(rank) - 1];
}

QByteArray row(Stage stage)
{
    const auto cell = [&stage](double share) {
        const auto text = stage.milliseconds.empty()
            ? QByteArray("-")
            : QByteArray::number(percentile(stage.milliseconds, share)) + " ms";
        return text.rightJustified(12);
    };
    std::ranges::sort(stage.milliseconds);
    return QByteArray(stage.name).leftJustified(16) + cell(0.5) + cell(0.95) + '\n';
}

} // namespace

QByteArray Timings::table(const QByteArray &log)
{
    std::array stages{Stage{"Recognition", "asrMs"},
                      Stage{"Polishing", "polishMs"},
                      Stage{"Paste", "pasteMs"},
                      Stage{"Whole", "totalMs"},
                      Stage{"Text fetched in", "fetchMs"}};
    int finished = 0;
    int failed = 0;
    for (const auto &line : log.split('\n')) {
        const bool isTiming = line.contains("] Processing timing. ");
        if (isTiming && line.contains(" failedStage="))
            ++failed;
        else if (isTiming)
            ++finished;
        else if (!line.contains("] Paste delivered. "))
            continue;
        if (!line.contains(" failedStage="))
            for (auto &stage : stages)
                if (const auto value = valueIn(line, stage.key))
                    stage.milliseconds += *value;
    }
    auto text = "Dictations in the log: " + QByteArray::number(finished)
        + ", and failed ones: " + QByteArray::number(failed) + '\n';
    if (finished == 0)
        return text;
    text += QByteArray(16, ' ') + QByteArray("median").rightJustified(12)
        + QByteArray("p95").rightJustified(12) + '\n';
    for (const auto &stage : stages)
        text += row(stage);
    return text;
}
