// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AudioSystem.h"

// The desktop's record of which applications may use the microphone, kept by its portals.
namespace MicrophonePermissionStore {

// Asks the store, which may take its time; the answer comes through the event loop of this thread.
// Denied when the store says "no" to this application, or without a word about it to applications
// in general; else authorized, also when there is no bus or store or it does not answer within the
// time limit of the bus. Main thread only.
[[nodiscard]] std::shared_ptr<MicrophonePermissionAnswer> request();

} // namespace MicrophonePermissionStore
