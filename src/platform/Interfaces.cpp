// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

// The interfaces' destructors live here, so that each has one home for its virtual table.
#include "AudioSystem.h"
#include "Clipboard.h"
#include "ColorSchemeWatch.h"
#include "FocusReturn.h"
#include "HotKeyRegistrar.h"
#include "ModifierMonitor.h"
#include "OverlaySurface.h"
#include "SessionLock.h"
#include "SyntheticKeyboard.h"
#include "TrayHostWatch.h"

RecordingEngine::~RecordingEngine() = default;
AudioSystem::~AudioSystem() = default;
Clipboard::~Clipboard() = default;
ColorSchemeWatch::~ColorSchemeWatch() = default;
FocusReturn::~FocusReturn() = default;
HotKeyRegistrar::~HotKeyRegistrar() = default;
ModifierMonitor::~ModifierMonitor() = default;
OverlaySurface::~OverlaySurface() = default;
SessionLock::~SessionLock() = default;
SyntheticKeyboard::~SyntheticKeyboard() = default;
TrayHostWatch::~TrayHostWatch() = default;

void FocusReturn::takeFocus() {}

// By value, as in those that keep it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void HotKeyRegistrar::setLossHandler(Handler) {}

QString HotKeyRegistrar::takenBy() const
{
    return {};
}

bool HotKeyRegistrar::acceptsReportedPress(HotKeyId, std::chrono::steady_clock::time_point)
{
    return true;
}

void SyntheticKeyboard::requestTrust() {}
