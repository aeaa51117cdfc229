// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DeepSeekPolisher.h"

#include "AppRuntime.h"
#include "DeepSeekAnswer.h"
#include "HttpSession.h"
#include "HushwireError.h"
#include "JsonText.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray message(const char *role, const QString &content)
{
    return R"({"role":")"_qba + role + R"(","content":)" + JsonText::string(content) + '}';
}

} // namespace

DeepSeekPolisher::DeepSeekPolisher(DeepSeekConfig config, QString prompt, HttpSession &session)
    : m_config(std::move(config))
    , m_prompt(std::move(prompt))
    , m_session(session)
{}

std::optional<HttpAddress> DeepSeekPolisher::endpoint(const DeepSeekConfig &config)
{
    QStringView base = config.baseURL;
    while (base.startsWith(u'/'))
        base = base.sliced(1);
    while (base.endsWith(u'/'))
        base.chop(1);
    return parseHttpAddress(base.toString() + "/chat/completions"_L1);
}

QString DeepSeekPolisher::polish(const QString &transcript) const
{
    const auto apiKey = m_config.apiKey.trimmed();
    if (apiKey.isEmpty())
        throw HushwireError::configMissing(u"请先在 "_s + AppRuntime::configPathDisplay
                                           + u" 填入 DeepSeek apiKey。"_s);
    const auto address = endpoint(m_config);
    if (!address)
        throw HushwireError::configMissing(u"DeepSeek baseURL 不正确。"_s);

    HttpRequest request;
    request.address = *address;
    request.headers = {{"Content-Type", "application/json"},
                       {"Authorization", "Bearer " + apiKey.toUtf8()}};
    request.openBody = [content = body(transcript)] {
        return std::make_unique<BytesBody>(content);
    };
    return polishedText(m_session.send(request));
}

QByteArray DeepSeekPolisher::body(const QString &transcript) const
{
    return R"({"model":)" + JsonText::string(m_config.model) + R"(,"messages":[)"
        + message("system", m_prompt) + ',' + message("user", u"语音识别原文：\n"_s + transcript)
        + R"(],"thinking":{"type":"disabled"},"stream":false})";
}
