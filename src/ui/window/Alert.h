// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

// Raises a warning titled with the application's name and returns at once; `dismissed` is called
// when the user has closed it. It blocks all other windows and stays in front of them. A text that
// is being shown is not shown a second time.
void showAlert(const QString &text, std::function<void()> dismissed);
