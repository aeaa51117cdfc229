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

// Measures dictations with Wrenfold beside what a user would otherwise glue together.
class DictationBenchmark final
{
public:
    explicit DictationBenchmark(Results &results);

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

    Results &m_results;
    InstantServices m_services;
    ReceivingEditor m_editor;
    HotKey m_hotKey;
    FileTail m_log;
    Application::Recordings m_recordings;
    ChildProcess m_application;
};
