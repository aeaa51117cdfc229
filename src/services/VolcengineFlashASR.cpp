// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "VolcengineFlashASR.h"

#include "AppRuntime.h"
#include "Base64FileBody.h"
#include "HttpSession.h"
#include "HushwireError.h"
#include "JsonText.h"
#include "Text.h"
#include "VolcengineAnswer.h"

using namespace Qt::StringLiterals;

namespace {

// A JSON document that the service takes inside a string; nothing when there are no hotwords.
std::optional<QByteArray> makeHotwordsContext(const QStringList &terms)
{
    const auto hotwords = PersonalDictionaryConfig::normalize(terms);
    if (hotwords.isEmpty())
        return {};
    QByteArrayList words;
    for (const auto &word : hotwords)
        words.append(R"({"word":)" + JsonText::string(word) + '}');
    return R"({"hotwords":[)" + words.join(',') + "]}";
}

} // namespace

// The trimmed keys, of which either the first or the other two are used.
struct VolcengineFlashASR::Credentials
{
    QString apiKey;
    QString appKey;
    QString accessKey;
};

VolcengineFlashASR::VolcengineFlashASR(VolcengineConfig config,
                                       PersonalDictionaryConfig personalDictionary,
                                       HttpSession &session)
    : m_config(std::move(config))
    , m_personalDictionary(std::move(personalDictionary))
    , m_session(session)
{}

std::optional<HttpAddress> VolcengineFlashASR::endpoint(const VolcengineConfig &config)
{
    return parseHttpAddress(config.endpoint);
}

QString VolcengineFlashASR::transcribe(const QUrl &audioURL) const
{
    const auto address = endpoint(m_config);
    if (!address)
        throw HushwireError::configMissing(u"火山引擎识别接口地址不正确。"_s);
    const auto keys = credentials();
    const auto &uid = keys.apiKey.isEmpty() ? keys.appKey : keys.apiKey;

    HttpRequest request;
    request.address = *address;
    request.headers = headers(keys);
    const auto prefix = R"({"user":{"uid":)" + JsonText::string(uid) + R"(},"audio":{"data":")"_qba;
    const auto suffix = R"("},"request":)" + requestOptions() + '}';
    request.openBody = [path = audioURL.toLocalFile(), prefix, suffix] {
        return std::make_unique<Base64FileBody>(path, prefix, suffix);
    };
    return recognisedText(m_session.send(request));
}

VolcengineFlashASR::Credentials VolcengineFlashASR::credentials() const
{
    Credentials keys{
        m_config.apiKey.trimmed(), m_config.appKey.trimmed(), m_config.accessKey.trimmed()};
    if (keys.apiKey.isEmpty() && (keys.appKey.isEmpty() || keys.accessKey.isEmpty()))
        throw HushwireError::configMissing(u"请先在 "_s + AppRuntime::configPathDisplay
                                           + u" 填入火山引擎 apiKey，或 appKey + accessKey。"_s);
    return keys;
}

VolcengineFlashASR::Headers VolcengineFlashASR::headers(const Credentials &credentials) const
{
    Headers headers = {{"Content-Type", "application/json"},
                       {"X-Api-Resource-Id", m_config.resourceId.toUtf8()},
                       {"X-Api-Request-Id", newUuidText().toLatin1()},
                       {"X-Api-Sequence", "-1"}};
    if (!credentials.apiKey.isEmpty())
        return headers << std::pair("X-Api-Key"_qba, credentials.apiKey.toUtf8());
    return headers << std::pair("X-Api-App-Key"_qba, credentials.appKey.toUtf8())
                   << std::pair("X-Api-Access-Key"_qba, credentials.accessKey.toUtf8());
}

QByteArray VolcengineFlashASR::requestOptions() const
{
    auto options = R"({"model_name":)" + JsonText::string(m_config.modelName) + R"(,"enable_itn":)"
        + JsonText::boolean(m_config.enableITN) + R"(,"enable_punc":)"
        + JsonText::boolean(m_config.enablePunctuation) + R"(,"enable_ddc":)"
        + JsonText::boolean(m_config.enableDDC);
    if (const auto context = makeHotwordsContext(m_personalDictionary.terms))
        options += R"(,"corpus":{"context":)" + JsonText::string(QString::fromUtf8(*context)) + '}';
    return options + '}';
}
