// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyConfig.h"

#include <QStringView>

// What the status item's tool tip says: how to record, behind the state word once there is one.
[[nodiscard]] QString statusToolTip(const HotKeyConfig &hotKey, QStringView word = {});
