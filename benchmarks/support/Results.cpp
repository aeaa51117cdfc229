// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Results.h"

#include <algorithm>
#include <cstdio>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace {

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    const auto middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

std::string number(double value)
{
    std::ostringstream text;
    text.precision(value < 10 ? 2 : 1);
    text << std::fixed << value;
    return text.str();
}

std::string list(const std::vector<double> &values)
{
    std::string text;
    for (const double value : values)
        text += (text.empty() ? "" : ", ") + number(value);
    return '[' + text + ']';
}

} // namespace

Results::Results(const std::string &file)
    : m_path(file)
    , m_file(file, std::ios::app)
{}

void Results::add(const Measurement &measurement)
{
    const auto &[name, unit, values, peer, peerValues, goal] = measurement;
    const double own = median(values);
    std::string peerText = peer;
    std::string ratioText;
    std::string goalText;
    m_file << R"({"name": )" << std::quoted(name) << R"(, "unit": )" << std::quoted(unit)
           << R"(, "wrenfold": )" << number(own) << R"(, "values": )" << list(values);
    double judged = own;
    if (!peerValues.empty()) {
        const double other = median(peerValues);
        peerText = peer + ' ' + number(other) + ' ' + unit;
        ratioText = number(own / other);
        m_file << R"(, "peer": )" << std::quoted(peer) << R"(, "peerMedian": )" << number(other)
               << R"(, "peerValues": )" << list(peerValues) << R"(, "ratio": )" << ratioText;
        if (goal && goal->isRatio)
            judged = own / other;
    }
    if (goal) {
        const bool isMet = judged <= goal->limit;
        goalText = "<= " + number(goal->limit) + (isMet ? "  met" : "  MISSED");
        m_file << R"(, "goal": )" << number(goal->limit) << R"(, "met": )"
               << (isMet ? "true" : "false");
    }
    m_file << "}\n" << std::flush;
    std::printf("%-55s %12s   %-22s %6s   %s\n",
                name.c_str(),
                (number(own) + ' ' + unit).c_str(),
                peerText.c_str(),
                ratioText.c_str(),
                goalText.c_str());
    std::fflush(stdout);
}

std::vector<double> Results::valuesOf(const std::string &name) const
{
    std::ifstream file(m_path);
    const std::string key = R"("values": [)";
    for (std::string line; std::getline(file, line);) {
        if (line.find('"' + name + '"') == std::string::npos)
            continue;
        std::istringstream list(line.substr(line.find(key) + key.size()));
        std::vector<double> values;
        for (double value = 0; list >> value; list.get()) // the comma
            values.push_back(value);
        return values;
    }
    throw std::runtime_error("not measured: " + name);
}
