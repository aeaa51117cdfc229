// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HushwireError.h"
#include "SecretMasking.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SecretMasking, BlotsOutEveryEchoOfASecret)
{
    const QString key = u"sk-0123456789abcdef"_s;
    const QString spoken = u"把 \"会议纪要\" 发给张三,\n谢谢"_s;
    const std::pair<QString, QString> rows[] = {
        {u"HTTP 401。bad key sk-0123456789abcdef."_s, u"HTTP 401。bad key ***."_s},
        {u"key SK-0123456789ABC... is invalid"_s, u"key ***... is invalid"_s},
        {u"{\"input\":\"把 \\\"会议纪要\\\" 发给张三,\\n谢谢\"}"_s, u"{\"input\":\"***\"}"_s},
        {u"at 把 \"会议纪要\" 发给张"_s, u"at ***"_s},
        {u"\\u628a \\\"\\u4f1a\\u8bae\\u7eaa\\u8981"_s, u"***"_s},
        {u"q=sk-0123456789abcdef&x=%E5%BC%A0%E4%B8%89"_s, u"q=***&x=***"_s},
        {u"HTTP 500。nothing of it"_s, u"HTTP 500。nothing of it"_s},
    };
    for (const auto &[description, logged] : rows) {
        const auto error = std::make_exception_ptr(HushwireError::serviceFailed(description));
        EXPECT_EQ(localizedDescription(withoutSecrets(error, {key, spoken, QString()})), logged);
    }
    EXPECT_EQ(withoutSecrets(nullptr, {key}), nullptr);
}
