// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "JsonCoding.h"

#include <QByteArray>
#include <QString>

// Requests are put together as text, because the library's JSON objects sort their keys; answers
// are decoded strictly.
namespace JsonText {

// The text as a JSON string, with its quotes.
[[nodiscard]] QByteArray string(const QString &text);
// "true" or "false".
[[nodiscard]] QByteArray boolean(bool value);
// The object that an answer consists of. Throws JsonError.
[[nodiscard]] JsonObjectReader parseObject(const QByteArray &answer);

} // namespace JsonText
