// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpError.h"

HttpError::HttpError(Kind kind, const QString &description)
    : LocalizedError(description)
    , m_kind(kind)
{}
