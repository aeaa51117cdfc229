// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The tutorials that say how to get the API keys. Lines are separated by line feeds; links are
// written as "[label](address)".
namespace APIKeyConfigurationWindowController {

[[nodiscard]] QString doubaoTutorialText();
[[nodiscard]] QString deepSeekTutorialText();

} // namespace APIKeyConfigurationWindowController
