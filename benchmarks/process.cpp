// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ProcessBenchmark.h"

#include <cstdio>
#include <functional>
#include <map>

// usage: wrenfold-bench-process NAME RESULT-FILE
int main(int argc, char **argv)
{
    const std::map<std::string, void (ProcessBenchmark::*)()> parts{
        {"start", &ProcessBenchmark::measureStart},
        {"idle", &ProcessBenchmark::measureIdle},
        {"closed-window", &ProcessBenchmark::measureClosedWindow},
        {"overlay", &ProcessBenchmark::measureOverlay},
        {"hand-over", &ProcessBenchmark::measureHandOver},
        {"termination", &ProcessBenchmark::measureTermination},
        {"long", &ProcessBenchmark::measureLongRecording},
        {"window-memory", &ProcessBenchmark::measureWindowMemory},
    };
    if (argc != 3 || !parts.contains(argv[1]))
        return 2;
    try {
        Results results(argv[2]);
        ProcessBenchmark benchmark(results);
        std::invoke(parts.at(argv[1]), benchmark);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
