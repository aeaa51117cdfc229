// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "DeepSeekConfig.h"
#include "HttpAddress.h"

#include <QString>

#include <optional>

class HttpSession;

// Rewrites recognised text by one call to DeepSeek's chat completions, the prompt being the system
// message.
class DeepSeekPolisher final
{
public:
    // The session must outlive this value.
    DeepSeekPolisher(DeepSeekConfig config, QString prompt, HttpSession &session);

    // The polished text, trimmed, never empty. Blocks; any thread but the main one. Throws
    // HushwireError for the configuration, the service and an empty result, HttpError for the
    // transport, JsonError for an answer that cannot be decoded.
    [[nodiscard]] QString polish(const QString &transcript) const;

    // Where the requests go; nothing when the configured base is no address.
    [[nodiscard]] static std::optional<HttpAddress> endpoint(const DeepSeekConfig &config);

private:
    [[nodiscard]] QByteArray body(const QString &transcript) const;

    DeepSeekConfig m_config;
    QString m_prompt;
    HttpSession &m_session;
};
