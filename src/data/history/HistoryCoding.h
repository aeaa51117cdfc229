// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HistoryItem.h"

#include <QByteArray>
#include <QList>

// The text of "history.json": one list of objects in the order given.
[[nodiscard]] QByteArray encodeHistory(const QList<HistoryItem> &items);

// The reverse: all four keys of every item are required, unknown ones ignored. Throws JsonError.
[[nodiscard]] QList<HistoryItem> decodeHistory(const QByteArray &text);
