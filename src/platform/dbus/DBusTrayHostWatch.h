// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "TrayHostWatch.h"

#include <QObject>

#include <memory>

class QDBusServiceWatcher;

// Looks out for a host of status notifier items on the session bus.
class DBusTrayHostWatch final : public QObject, public TrayHostWatch
{
    Q_OBJECT
public:
    DBusTrayHostWatch();
    ~DBusTrayHostWatch() override;

    void start(Handler handler) override;

private slots:
    void reportHost();

private:
    void askForHost();

    Handler m_handler;
    std::unique_ptr<QDBusServiceWatcher> m_serviceWatcher;
};
