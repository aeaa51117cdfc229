// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpAddress.h"
#include "PersonalDictionaryConfig.h"
#include "VolcengineConfig.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <optional>
#include <utility>

class HttpSession;

// Turns one recording into text with Volcengine's big-model flash recognition: one request that
// carries the whole recording, one answer, no retry.
class VolcengineFlashASR final
{
public:
    // The session must outlive this value.
    VolcengineFlashASR(VolcengineConfig config,
                       PersonalDictionaryConfig personalDictionary,
                       HttpSession &session);

    // The recognised text, trimmed, never empty. Blocks; any thread but the main one. The file is
    // left as it is. Throws HushwireError for the configuration, the service and an empty result;
    // LocalizedError for an unreadable file, HttpError for the transport, JsonError for an answer
    // that cannot be decoded.
    [[nodiscard]] QString transcribe(const QUrl &audioURL) const;

    // Where the requests go; nothing when the configured endpoint is no address.
    [[nodiscard]] static std::optional<HttpAddress> endpoint(const VolcengineConfig &config);

private:
    struct Credentials;
    using Headers = QList<std::pair<QByteArray, QByteArray>>;

    [[nodiscard]] Credentials credentials() const;
    [[nodiscard]] Headers headers(const Credentials &credentials) const;
    [[nodiscard]] QByteArray requestOptions() const;

    VolcengineConfig m_config;
    PersonalDictionaryConfig m_personalDictionary;
    HttpSession &m_session;
};
