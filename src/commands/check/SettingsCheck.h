// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppConfig.h"
#include "Finding.h"

#include <QList>

class HttpSession;

// Looks at the settings and the files, and at the services that they name.
namespace SettingsCheck {

// The settings as they are on the disk, changing nothing there but a mode that lets others read
// them; the template when there are none, and a finding about either.
[[nodiscard]] AppConfig load(QList<Finding> &findings);
[[nodiscard]] Finding keys(const AppConfig &config);
// Which of the files with settings, history and log somebody besides the user can get at, or the
// user cannot; one finding when there is none.
[[nodiscard]] QList<Finding> fileModes();
// Asks both services for any answer, without a key: the way there, its encryption and a first byte.
[[nodiscard]] QList<Finding> services(const AppConfig &config, HttpSession &http);

} // namespace SettingsCheck
