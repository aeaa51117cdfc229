// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SessionLock.h"

#include <QObject>

// The screen savers of the session bus, and the session's record with the login manager.
class DBusSessionLock final : public QObject, public SessionLock
{
    Q_OBJECT
public:
    void start(Handler handler) override;

private slots:
    void reportActive(bool isActive);
    void reportLock();
    void reportUnlock();

private:
    void followLoginSession();

    Handler m_handler;
};
