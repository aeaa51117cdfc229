// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ErrorClassification.h"
#include "OverlayMessages.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(OverlayMessages, TellEveryErrorByItsKindAlone)
{
    const auto thrown = [](const auto &error) { return std::make_exception_ptr(error); };
    const std::tuple<std::exception_ptr, QString, bool> rows[] = {
        {thrown(HushwireError::permissionMissing(u"需要麦克风权限才能录音。"_s)),
         u"需要权限"_s,
         false},
        {thrown(HushwireError::responseFailed(u"辅助功能"_s)), u"识别失败"_s, false},
        {thrown(HushwireError::serviceFailed(u"x"_s)), u"处理失败"_s, false},
        {thrown(HushwireError::recordingFailed(u"x"_s)), u"处理失败"_s, false},
        {thrown(LocalizedError(u"辅助功能"_s)), u"处理失败"_s, false},
    };
    for (const auto &[error, text, isAccessibility] : rows) {
        EXPECT_EQ(OverlayMessages::failed(error).text, text);
        EXPECT_EQ(isAccessibilityPermissionError(error), isAccessibility);
    }
}
