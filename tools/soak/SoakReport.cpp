// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SoakReport.h"

using namespace Qt::StringLiterals;

namespace {

int sum(const std::map<int, int> &counts)
{
    int all = 0;
    for (const auto &[outcome, count] : counts)
        all += count;
    return all;
}

} // namespace

int SoakReport::dictations() const
{
    int all = 0;
    for (const auto &[fault, counts] : m_counts)
        all += sum(counts);
    return all;
}

int SoakReport::faults() const
{
    const auto undisturbed = m_counts.find(SoakFault::None);
    return dictations() - (undisturbed == m_counts.end() ? 0 : sum(undisturbed->second));
}

QString SoakReport::table() const
{
    auto text = u"| what went wrong | times | pasted | on the clipboard, told | failure told |"
                " cancelled | launched again |\n|---|---|---|---|---|---|---|\n"_s;
    for (const auto &[fault, counts] : m_counts) {
        text += u"| %1 | %2 |"_s.arg(nameOf(fault)).arg(sum(counts));
        for (int outcome = 0; outcome <= int(SoakOutcome::Relaunched); ++outcome) {
            const auto count = counts.find(outcome);
            text += count == counts.end() ? u" |"_s : u" %1 |"_s.arg(count->second);
        }
        text += u'\n';
    }
    return text;
}
