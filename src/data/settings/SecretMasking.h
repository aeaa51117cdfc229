// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppConfig.h"

#include <QStringList>

#include <exception>

// The keys in the settings, which no log line may hold.
[[nodiscard]] QStringList secretsOf(const AppConfig &config);

// The same error for the log: its description with every echo of a secret (an API key, a
// transcript) blotted out, also where it is cut short or escaped as JSON or in a URL. A null error
// stays null.
[[nodiscard]] std::exception_ptr withoutSecrets(const std::exception_ptr &error,
                                                const QStringList &secrets);
