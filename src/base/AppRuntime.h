// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1StringView>

// The constants by which the application names itself and its files.
namespace AppRuntime {

// Window title, status tool tip, alert titles, the launch log line.
inline constexpr QLatin1StringView appName("Wrenfold");
// The data directory under the home folder; also the instance identifier of last resort.
inline constexpr QLatin1StringView configDirectoryName(".wrenfold");
// The data directory of an earlier release, read only to carry its files over once.
inline constexpr QLatin1StringView legacyConfigDirectoryName(".hush-wire");
// First part of the names of temporary recordings.
inline constexpr QLatin1StringView tempAudioPrefix("wrenfold");
// The configuration path as messages and the log show it.
inline constexpr QLatin1StringView configPathDisplay("~/.wrenfold/config.json");
// Names the application on the desktop: desktop file, D-Bus name space, lock file.
inline constexpr QLatin1StringView bundleIdentifier("local.wrenfold");

} // namespace AppRuntime
