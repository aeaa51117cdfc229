// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DeepSeekPolisher.h"

#include "AppRuntime.h"
#include "HttpSession.h"
#include "HushwireError.h"
#include "JsonText.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

QByteArray message(const char *role, const QString &content)
{
    return R"({"role":")"_qba + role + R"(","content":)" + JsonText::string(content) + '}';
}

// Empty when the bytes are not UTF-8 throughout.
QString strictText(const QByteArray &bytes)
{
    using Flag = QStringConverter::Flag;
    QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    const QString text = decoder(bytes);
    return decoder.hasError() ? QString() : text;
}

// Every choice has to be well-formed, the first one counts.
QString firstContent(const QByteArray &body)
{
    QStringList contents;
    const auto choices = JsonText::parseObject(body).objects("choices"_L1);
    for (const auto &choice : choices) {
        const auto received = choice.object("message"_L1);
        static_cast<void>(received.text("role"_L1));
        contents.append(received.text("content"_L1));
    }
    return contents.value(0).trimmed();
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
    const auto response = m_session.send(request);

    if (!response.isSuccess())
        throw HushwireError::serviceFailed(u"DeepSeek 请求失败：HTTP "_s
                                           + QString::number(response.status) + u'。'
                                           + strictText(response.body));
    auto text = firstContent(response.body);
    if (text.isEmpty())
        throw HushwireError::responseFailed(u"DeepSeek 没有返回整理后的文本。"_s);
    return text;
}

QByteArray DeepSeekPolisher::body(const QString &transcript) const
{
    return R"({"model":)" + JsonText::string(m_config.model) + R"(,"messages":[)"
        + message("system", m_prompt) + ',' + message("user", u"语音识别原文：\n"_s + transcript)
        + R"(],"thinking":{"type":"disabled"},"stream":false})";
}
