// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ErrorClassification.h"

std::optional<HushwireError::Kind> kindOf(const std::exception_ptr &error)
{
    try {
        std::rethrow_exception(error);
    } catch (const HushwireError &known) {
        return known.kind();
    } catch (...) {
        return std::nullopt;
    }
}

bool isAccessibilityPermissionError(const std::exception_ptr &error)
{
    return kindOf(error) == HushwireError::Kind::PermissionMissing
        && localizedDescription(error).contains(QStringLiteral("辅助功能"));
}
