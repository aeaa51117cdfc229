// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppConfig.h"

#include <QByteArray>

// The text of "config.json": one object with a key a field, every field always written.
[[nodiscard]] QByteArray encodeAppConfig(const AppConfig &config);

// The reverse. A missing or null key of the top level takes its default, unknown keys are ignored,
// records inside are read strictly. Throws JsonError.
[[nodiscard]] AppConfig decodeAppConfig(const QByteArray &text);
