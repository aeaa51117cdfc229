// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Process.h"

// Both services as a scripted stand-in on loopback.
class ScriptedServices final
{
public:
    // Starts the stand-in with its command-line options and waits until it listens.
    explicit ScriptedServices(const QStringList &options = {});

    // Writes a configuration that points to the stand-in, with made-up keys or without any.
    void configure(bool hasKeys = true) const;
    // One line for every request received so far.
    [[nodiscard]] QStringList requests();

private:
    BackgroundProcess m_process;
    QString m_address;
    QByteArray m_output;
};
