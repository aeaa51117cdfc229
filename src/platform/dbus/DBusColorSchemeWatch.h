// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ColorSchemeWatch.h"

#include <QObject>

// The desktop's settings as its portal publishes them
// (org.freedesktop.portal.Settings, namespace org.freedesktop.appearance).
class DBusColorSchemeWatch final : public QObject, public ColorSchemeWatch
{
    Q_OBJECT
public:
    void start(Handler handler) override;

private slots:
    void ask();

private:
    Handler m_handler;
};
