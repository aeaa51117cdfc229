// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpResponse.h"

#include <QString>

// The text in an answer of Volcengine's recognition, trimmed, never empty. Throws HushwireError for
// a failure that it tells and an empty result, JsonError when it cannot be decoded.
[[nodiscard]] QString recognisedText(const HttpResponse &response);
