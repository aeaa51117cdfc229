// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HushwireError.h"

#include <gtest/gtest.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

TEST(HushwireError, AndForeignOnesAreDescribedByTheirMessageUnchanged)
{
    const auto message = u"语音识别失败：\"50%1\"\n第二行"_s;
    const auto error = HushwireError::serviceFailed(message);
    EXPECT_EQ(error.kind(), HushwireError::Kind::ServiceFailed);
    EXPECT_EQ(localizedDescription(std::make_exception_ptr(error)), message);
    EXPECT_EQ(QString::fromUtf8(error.what()), message);
    // Foreign exceptions are described too.
    EXPECT_EQ(localizedDescription(std::make_exception_ptr(std::runtime_error("坏"))), u"坏"_s);
    EXPECT_EQ(localizedDescription(std::make_exception_ptr(7)), u"unknown error"_s);
}
