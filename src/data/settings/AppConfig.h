// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "DeepSeekConfig.h"
#include "HotKeyConfig.h"
#include "PasteConfig.h"
#include "PersonalDictionaryConfig.h"
#include "PromptSettings.h"
#include "VolcengineConfig.h"

#include <QUrl>

// All settings, as kept in "config.json". A default-constructed value is the template.
struct AppConfig
{
    struct LoadResult;

    AppConfig();

    // The file read and written, and where an earlier release kept it.
    [[nodiscard]] static QUrl configURL();
    [[nodiscard]] static QUrl legacyConfigURL();

    // Reads the file, carrying a legacy one over once, or writes the template, with what is set for
    // all users of this machine, when there is none.
    // Throws LocalizedError on any failure; the file is then left as it is.
    [[nodiscard]] static LoadResult loadOrCreateTemplate();
    // Moves a file that could not be loaded out of the way of the next save, to
    // "config.unreadable-<time>.json", and returns that path; empty when there is no file any more.
    // Throws LocalizedError.
    [[nodiscard]] static QString setUnreadableAside();
    // Replaces the file atomically. Throws LocalizedError; the file then keeps its old content.
    static void save(const AppConfig &config);

    VolcengineConfig volcengine;
    DeepSeekConfig deepSeek;
    PasteConfig paste;
    HotKeyConfig hotKey;
    PromptSettings prompts;
    PersonalDictionaryConfig personalDictionary;
    // The text of the prompt that was active when the prompt settings were last saved.
    QString polishPrompt;

    bool operator==(const AppConfig &) const = default;
};

struct AppConfig::LoadResult
{
    AppConfig config;
    // Whether this call wrote a new template file.
    bool createdTemplate = false;
};
