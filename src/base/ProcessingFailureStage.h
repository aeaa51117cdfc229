// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1StringView>

// The step of a dictation that was running when it failed.
enum class ProcessingFailureStage {
    SpeechRecognition,
    TextPolishing,
    AutoPaste,
};

// The stage as log lines name it, after "stage=" and "failedStage=".
[[nodiscard]] QLatin1StringView logName(ProcessingFailureStage stage);
