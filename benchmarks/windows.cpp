// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Appearance.h"
#include "HeldWindow.h"
#include "WindowBenchmark.h"

#include <QApplication>

#include <cstdio>
#include <functional>
#include <map>

// usage: wrenfold-bench-windows NAME RESULT-FILE, or hold none|own|bare [COUNT...]
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    Appearance::install();
    const std::map<std::string, void (WindowBenchmark::*)()> parts{
        {"dictionary", &WindowBenchmark::measureDictionary},
        {"history", &WindowBenchmark::measureHistory},
        {"prompt", &WindowBenchmark::measurePrompt},
        {"window", &WindowBenchmark::measureWindow},
    };
    if (argc >= 3 && argv[1] == std::string_view("hold"))
        holdWindow(QApplication::arguments().mid(2));
    if (argc != 3 || !parts.contains(argv[1]))
        return 2;
    try {
        Results results(argv[2]);
        WindowBenchmark benchmark(results);
        std::invoke(parts.at(argv[1]), benchmark);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
