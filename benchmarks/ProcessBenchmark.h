// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Application.h"
#include "ChildProcess.h"
#include "FileTail.h"
#include "HotKey.h"
#include "InstantServices.h"
#include "Results.h"

#include <memory>

// Measures Wrenfold as a process: start, cost while idle and at work, hand-over and end, beside
// CopyQ, another tray application with Qt.
class ProcessBenchmark final
{
public:
    explicit ProcessBenchmark(Results &results);

    void measureStart();
    void measureIdle();
    void measureClosedWindow();
    void measureOverlay();
    void measureHandOver();
    void measureTermination();
    void measureLongRecording();
    void measureWindowMemory();

private:
    // Starts the application and returns when it is ready.
    std::unique_ptr<ChildProcess> startApplication();
    void record();
    void recordHalfAnHour();
    static double terminate(ChildProcess &application);
    static double cpuShare(const ChildProcess &application);

    Results &m_results;
    InstantServices m_services;
    HotKey m_hotKey;
    FileTail m_log;
    FileTail m_tray;
};
