// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "VolcengineAnswer.h"

#include "HushwireError.h"
#include "JsonText.h"

using namespace Qt::StringLiterals;

namespace {

void checkStatus(const HttpResponse &response)
{
    if (!response.isSuccess())
        throw HushwireError::serviceFailed(u"火山引擎请求失败：HTTP %1。"_s.arg(response.status));
    const auto code = response.header("X-Api-Status-Code");
    if (!code || *code == "20000000")
        return;
    const auto message = response.header("X-Api-Message").value_or("unknown");
    throw HushwireError::serviceFailed(u"火山引擎识别失败："_s + QString::fromUtf8(*code) + u' '
                                       + QString::fromUtf8(message) + u'。');
}

// Empty where the answer has none.
QString textIn(const QByteArray &body)
{
    const auto answer = JsonText::parseObject(body);
    if (!answer.has("result"_L1))
        return {};
    const auto result = answer.object("result"_L1);
    return result.has("text"_L1) ? result.text("text"_L1).trimmed() : QString();
}

} // namespace

QString recognisedText(const HttpResponse &response)
{
    checkStatus(response);
    auto text = textIn(response.body);
    if (text.isEmpty())
        throw HushwireError::responseFailed(
            u"火山引擎没有返回可用文字，可能是静音、音频太短或识别失败。"_s);
    return text;
}
