// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// Whether a recording that was started still grows, and else why not.
enum class RecordingCondition {
    Capturing,
    DeviceLost, // the microphone or the sound server is gone
    StorageFull, // the file takes no more
};
