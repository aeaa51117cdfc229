// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HushwireError.h"
#include "ProcessingFailureStage.h"

#include <gtest/gtest.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

TEST(HushwireError, CarriesItsKindAndItsMessageUnchanged)
{
    using Kind = HushwireError::Kind;
    const auto message = u"语音识别失败：\"50%1\"\n第二行"_s;
    const std::pair<HushwireError, Kind> cases[] = {
        {HushwireError::configMissing(message), Kind::ConfigMissing},
        {HushwireError::permissionMissing(message), Kind::PermissionMissing},
        {HushwireError::recordingFailed(message), Kind::RecordingFailed},
        {HushwireError::serviceFailed(message), Kind::ServiceFailed},
        {HushwireError::responseFailed(message), Kind::ResponseFailed},
        {HushwireError::pasteFailed(message), Kind::PasteFailed},
    };
    for (const auto &[error, kind] : cases) {
        EXPECT_EQ(error.kind(), kind);
        EXPECT_EQ(localizedDescription(std::make_exception_ptr(error)), message);
        EXPECT_EQ(QString::fromUtf8(error.what()), message);
    }
}

TEST(HushwireError, ForeignExceptionsAreDescribedToo)
{
    EXPECT_EQ(localizedDescription(std::make_exception_ptr(std::runtime_error("坏"))), u"坏"_s);
    EXPECT_EQ(localizedDescription(std::make_exception_ptr(7)), u"unknown error"_s);
}

TEST(ProcessingFailureStage, HasTheNamesOfTheLog)
{
    EXPECT_EQ(logName(ProcessingFailureStage::SpeechRecognition), "speechRecognition"_L1);
    EXPECT_EQ(logName(ProcessingFailureStage::TextPolishing), "textPolishing"_L1);
    EXPECT_EQ(logName(ProcessingFailureStage::AutoPaste), "autoPaste"_L1);
}
