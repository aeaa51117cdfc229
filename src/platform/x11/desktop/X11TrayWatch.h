// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "TrayHostWatch.h"

#include <QAbstractNativeEventFilter>
#include <QObject>

// Looks out for a system tray in the older manner of X11, where icons are embedded windows.
class X11TrayWatch final : public QObject, public TrayHostWatch, private QAbstractNativeEventFilter
{
public:
    ~X11TrayWatch() override;

    void start(Handler handler) override;

private:
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;
    void report();

    Handler m_handler;
    quint32 m_managerAtom = 0;
    quint32 m_traySelection = 0;
};
