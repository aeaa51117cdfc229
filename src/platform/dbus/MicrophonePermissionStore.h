// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AudioSystem.h"

// The desktop's record of which applications may use the microphone, kept by its portals.
namespace MicrophonePermissionStore {

// Denied when the store says "no" to this application, or without a word about it to applications
// in general; else authorized, also when there is no store or it does not answer within 100 ms.
// Any thread.
[[nodiscard]] MicrophonePermission permission();

} // namespace MicrophonePermissionStore
