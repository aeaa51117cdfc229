// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "DictationHost.h"

#include <QStringList>

// An application that only remembers what the session asked of it.
class FakeDictationHost final : public DictationHost
{
public:
    const AppConfig &config() const override { return settings; }
    void updateStatusTitle(QStringView word) override { statusWords << word.toString(); }
    void registerEscapeCancelHotKey() override { hasEscape = true; }
    void unregisterEscapeCancelHotKey() override { hasEscape = false; }
    void refreshMainWindow() override { ++refreshes; }
    void openAccessibilityPermissionSettings() override { ++permissionPages; }
    void showAlert(const QString &text, std::function<void()> dismissed) override
    {
        alerts << text;
        dismissAlert = std::move(dismissed);
    }

    AppConfig settings;
    QStringList statusWords;
    QStringList alerts;
    std::function<void()> dismissAlert;
    bool hasEscape = false;
    int refreshes = 0;
    int permissionPages = 0;
};
