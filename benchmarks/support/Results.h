// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <fstream>
#include <optional>
#include <string>
#include <vector>

// One row of the table: the same thing measured of Wrenfold and, where there is one, of a peer.
struct Measurement
{
    // The most that is aimed for.
    struct Goal
    {
        double limit = 0;
        bool isRatio = true; // of Wrenfold's median to the peer's, else of Wrenfold's own
    };

    std::string name;
    std::string unit;
    std::vector<double> values = {};
    std::string peer = {};
    std::vector<double> peerValues = {}; // none where the peer cannot do it
    std::optional<Goal> goal = {};
};

// Prints measurements as a table, medians side by side, and appends them to a file, a JSON object a
// line.
class Results final
{
public:
    explicit Results(const std::string &file);

    void add(const Measurement &measurement);
    // The values of a row that is in the file. Throws std::runtime_error when there is none.
    [[nodiscard]] std::vector<double> valuesOf(const std::string &name) const;

private:
    std::string m_path;
    std::ofstream m_file;
};
