// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Application.h"
#include "ChildProcess.h"
#include "FileTail.h"
#include "HotKey.h"
#include "InstantServices.h"
#include "ReceivingEditor.h"
#include "Results.h"

#include <string_view>

// Measures dictations with Wrenfold beside what a user would otherwise glue together.
class DictationBenchmark final
{
public:
    // The desktop is X11 without a name.
    DictationBenchmark(Results &results, std::string_view desktop);

    // Short dictations: to the first sample, and from the answer to the text.
    void measureShortOnes();
    // Recordings of a minute: to the last byte of the request.
    void measureMinutes();

private:
    struct Times
    {
        double pressToSample = 0;
        double pressToLastByte = 0;
        double answerToText = 0;
    };
    Times dictate(std::chrono::milliseconds speech);
    double parecordToSample() const;
    double curlToLastByte(const std::string &bodyFile);
    double glueToText();
    // Adds the row, on Wayland beside X11's too.
    void add(Measurement measurement);

    Results &m_results;
    std::string m_desktop;
    InstantServices m_services;
    HotKey m_hotKey; // a Wayland seat without a keyboard has no focus to give
    ReceivingEditor m_editor;
    FileTail m_log;
    Application::Recordings m_recordings;
    ChildProcess m_application;
};
