// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ProcessingFailureStage.h"
#include "RecordingCondition.h"

#include <QString>

#include <chrono>
#include <exception>

// A short text in the overlay and how long it stays.
struct OverlayMessage
{
    QString text;
    std::chrono::milliseconds shownFor;
};

// What the overlay says of a stage while it runs, and when it takes long.
struct OverlayStage
{
    QString text;
    QString slowText;
};

// Everything a dictation says in the overlay.
namespace OverlayMessages {

[[nodiscard]] OverlayStage recognising();
[[nodiscard]] OverlayStage polishing();

[[nodiscard]] OverlayMessage cancelled();
[[nodiscard]] OverlayMessage permissionNeeded();
[[nodiscard]] OverlayMessage recordingFailed();
// A dictation failed at this stage.
[[nodiscard]] OverlayMessage failed(ProcessingFailureStage stage);
// An error outside a dictation's stages.
[[nodiscard]] OverlayMessage failed(const std::exception_ptr &error);
// Why nothing more is recorded; it stays until what was spoken is processed.
[[nodiscard]] QString interrupted(RecordingCondition condition);

} // namespace OverlayMessages
