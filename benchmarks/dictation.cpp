// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DictationBenchmark.h"

#include <QApplication>

#include <cstdio>
#include <string_view>

// usage: wrenfold-bench-dictation short|minute RESULT-FILE [sway|kde|gnome]
// With a desktop, on it, beside what X11 has in the file.
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    if (argc != 3 && argc != 4)
        return 2;
    try {
        Results results(argv[2]);
        DictationBenchmark benchmark(results, argc == 4 ? argv[3] : "");
        if (argv[1] == std::string_view("minute"))
            benchmark.measureMinutes();
        else
            benchmark.measureShortOnes();
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
