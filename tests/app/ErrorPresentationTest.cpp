// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ErrorPresentation.h"
#include "HushwireError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ErrorPresentation, MapsEveryErrorToItsOverlayText)
{
    const auto thrown = [](const auto &error) { return std::make_exception_ptr(error); };
    const std::tuple<std::exception_ptr, QString, bool> rows[] = {
        {thrown(HushwireError::permissionMissing(u"需要麦克风权限才能录音。"_s)),
         u"需要权限"_s,
         false},
        {thrown(HushwireError::permissionMissing(u"需要辅助功能权限"_s)), u"需要权限"_s, true},
        {thrown(HushwireError::responseFailed(u"辅助功能"_s)), u"识别失败"_s, false},
        {thrown(HushwireError::pasteFailed(u"x"_s)), u"粘贴失败"_s, false},
        {thrown(HushwireError::serviceFailed(u"x"_s)), u"处理失败"_s, false},
        {thrown(HushwireError::configMissing(u"x"_s)), u"处理失败"_s, false},
        {thrown(HushwireError::recordingFailed(u"x"_s)), u"处理失败"_s, false},
        {thrown(LocalizedError(u"辅助功能"_s)), u"处理失败"_s, false},
        {thrown(std::bad_alloc()), u"处理失败"_s, false},
    };
    for (const auto &[error, message, isAccessibility] : rows) {
        EXPECT_EQ(overlayMessage(error), message);
        EXPECT_EQ(isAccessibilityPermissionError(error), isAccessibility);
    }
}

TEST(ErrorPresentation, BlotsOutEveryEchoOfASecret)
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
