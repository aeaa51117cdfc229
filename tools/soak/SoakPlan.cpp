// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SoakPlan.h"

#include <cmath>
#include <iterator>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *names[] = {
    "nothing",
    "recognition refuses",
    "recognition answers wrongly",
    "recognition takes its time",
    "recognition is cut off",
    "recognition is silent, then quit",
    "polishing refuses",
    "polishing answers wrongly",
    "polishing takes its time",
    "polishing is cut off",
    "polishing is silent, then quit",
    "sound server stands still",
    "sound server killed and restarted",
    "keyboard layout changes",
    "Escape",
    "Escape while processing",
    "double press",
    "presses while processing",
    "clipboard taken at the paste",
    "focus taken at the paste",
    "editor closes before the paste",
    "history cannot be written",
    "killed and launched again",
    "quit and launched again",
    "window opens, pages switched",
};
static_assert(std::size(names) == std::size_t(SoakFault::Count));

} // namespace

QString nameOf(SoakFault fault)
{
    return QString::fromLatin1(names[int(fault)]);
}

SoakPlan::SoakPlan(unsigned seed, unsigned faultPercent)
    : m_seed(seed)
    , m_faultPercent(faultPercent)
{}

SoakStep SoakPlan::step(int number) const
{
    std::seed_seq seeds{m_seed, unsigned(number)};
    std::mt19937 random(seeds);
    SoakStep step;
    step.number = number;
    if (random() % 100 < m_faultPercent)
        step.fault = SoakFault(1 + random() % (unsigned(SoakFault::Count) - 1));
    const double share = double(random()) / double(std::mt19937::max());
    step.length = std::chrono::milliseconds(200 + int(2800 * std::pow(share, 4)));
    step.chance = unsigned(random());
    step.spoken = u"spoken-%1 嗯 那个"_s.arg(number);
    step.written = u"written-%1 好的 🚀 ship「it」\n\t%2。"_s.arg(number).arg(
        u"next\n"_s.repeated(qsizetype(random() % 60)));
    return step;
}
