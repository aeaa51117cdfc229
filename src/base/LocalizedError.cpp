// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "LocalizedError.h"

LocalizedError::LocalizedError(const QString &description)
    : m_description(description)
    , m_utf8(description.toUtf8())
{}

QString localizedDescription(const std::exception_ptr &error)
{
    Q_ASSERT(error);
    try {
        std::rethrow_exception(error);
    } catch (const LocalizedError &known) {
        return known.localizedDescription();
    } catch (const std::exception &foreign) {
        return QString::fromUtf8(foreign.what());
    } catch (...) {
        return QStringLiteral("unknown error");
    }
}
