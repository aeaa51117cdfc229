// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Settings of the speech recognition service. Keys in the file equal the field names.
struct VolcengineConfig
{
    QString endpoint =
        QStringLiteral("https://openspeech.bytedance.com/api/v3/auc/bigmodel/recognize/flash");
    QString apiKey;
    // Used together when apiKey is empty.
    QString appKey;
    QString accessKey;
    QString resourceId = QStringLiteral("volc.bigasr.auc_turbo");
    QString modelName = QStringLiteral("bigmodel");
    bool enableITN = true;
    bool enablePunctuation = true;
    bool enableDDC = true;

    bool operator==(const VolcengineConfig &) const = default;
};
