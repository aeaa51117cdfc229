// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

// Raises a modal warning titled with the application's name and returns at once; `dismissed` is
// called when the user has closed it.
void showAlert(const QString &text, std::function<void()> dismissed);
