// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DeepSeekAnswer.h"

#include "HushwireError.h"
#include "JsonText.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

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

QString polishedText(const HttpResponse &response)
{
    if (!response.isSuccess())
        throw HushwireError::serviceFailed(u"DeepSeek 请求失败：HTTP "_s
                                           + QString::number(response.status) + u'。'
                                           + strictText(response.body));
    auto text = firstContent(response.body);
    if (text.isEmpty())
        throw HushwireError::responseFailed(u"DeepSeek 没有返回整理后的文本。"_s);
    return text;
}
