// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PromptSettings.h"

#include <QLatin1StringView>

// The built-in prompts and the rule that decides which prompt is active.
namespace PromptLibrary {

inline constexpr QLatin1StringView cleanID("builtin.clean");
inline constexpr QLatin1StringView scriptID("builtin.script");
inline constexpr QLatin1StringView structuredID("builtin.structured");

[[nodiscard]] const PromptDefinition &cleanPrompt();
[[nodiscard]] const PromptDefinition &scriptPrompt();
[[nodiscard]] const PromptDefinition &structuredPrompt();
// The three above, in that order.
[[nodiscard]] const QList<PromptDefinition> &builtInPrompts();

// The built-in prompts followed by the user's own, each in stored order.
[[nodiscard]] QList<PromptDefinition> allPrompts(const PromptSettings &settings);
// The first prompt with the selected id (compared exactly); else the clean prompt's id and name
// with the fallback text.
[[nodiscard]] PromptDefinition selectedPrompt(const PromptSettings &settings,
                                              const QString &fallback);

} // namespace PromptLibrary
