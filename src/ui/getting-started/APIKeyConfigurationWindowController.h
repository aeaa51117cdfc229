// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

// The tutorials that say how to get the API keys. Lines are separated by line feeds; links are
// written as "[label](address)".
namespace APIKeyConfigurationWindowController {

extern const QStringView doubaoTutorialText;
extern const QStringView deepSeekTutorialText;

} // namespace APIKeyConfigurationWindowController
