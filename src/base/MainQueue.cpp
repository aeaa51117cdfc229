// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MainQueue.h"

CancelledError::CancelledError()
    : LocalizedError(QStringLiteral("The operation was cancelled."))
{}

RepeatingTimer::~RepeatingTimer() = default;

MainQueue::~MainQueue() = default;
