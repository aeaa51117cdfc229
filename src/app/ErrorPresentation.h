// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <exception>

// The short overlay text for an error outside a dictation's stages.
[[nodiscard]] QString overlayMessage(const std::exception_ptr &error);

// Whether the error says that this process may not post input to other applications.
[[nodiscard]] bool isAccessibilityPermissionError(const std::exception_ptr &error);

// Whether the error says that a recording could not be started or stopped.
[[nodiscard]] bool isRecordingFailure(const std::exception_ptr &error);

// The same error for the log: its description with every echo of a secret (an API key, a
// transcript) blotted out, also where it is cut short or escaped as JSON or in a URL. A null error
// stays null.
[[nodiscard]] std::exception_ptr withoutSecrets(const std::exception_ptr &error,
                                                const QStringList &secrets);
