// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Desktop.h"
#include "SoakApplication.h"
#include "SoakEditors.h"
#include "SoakLog.h"
#include "SoakReport.h"
#include "SoakServices.h"
#include "SoakSurroundings.h"

#include <optional>

// Dictates as a plan has it, on the desktop around it, and looks at all that must hold afterwards.
class SoakRun final
{
public:
    // Starts the application with a full history. Throws SoakFailure, as all of this.
    SoakRun();

    void dictate(const SoakStep &step);
    // What must hold after the last one.
    void finish() { m_application.requireNoGrowth(); }

    [[nodiscard]] const SoakReport &report() const { return m_report; }
    [[nodiscard]] QString growth() const { return m_application.growth(); }
    // What the log has said of the dictation that runs.
    [[nodiscard]] QStringList log() { return m_log.lines(); }

private:
    // The moments at which faults come, and what had come of it by then, if anything.
    [[nodiscard]] std::optional<SoakOutcome> start(const SoakStep &step);
    [[nodiscard]] std::optional<SoakOutcome> record(const SoakStep &step);
    [[nodiscard]] std::optional<SoakOutcome> interfere(const SoakStep &step);
    [[nodiscard]] std::optional<SoakOutcome> process(const SoakStep &step);
    [[nodiscard]] SoakOutcome outcome(const SoakStep &step);
    void disturbPaste(const SoakStep &step);
    void repair(const SoakStep &step);

    void checkRequests(SoakOutcome outcome) const;
    void checkHistory(const SoakStep &step, SoakOutcome outcome);
    void checkTraces(const SoakStep &step);

    Desktop m_desktop;
    SoakServices m_services;
    SoakEditors m_editors;
    SoakLog m_log;
    SoakSurroundings m_surroundings;
    SoakApplication m_application{m_desktop, m_log};
    SoakReport m_report;
    QString m_arrived; // in the editors by the end of the dictation before
    QStringList m_history; // what the history must hold, newest first
    qsizetype m_unsaved = 0; // how many of the newest the disk has not taken yet
};
