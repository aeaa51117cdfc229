// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QSslConfiguration>
#include <QString>
#include <QTemporaryDir>

// Certificates made afresh with the openssl program for one run of tests.
class TestCertificates final
{
public:
    enum class Flaw { None, Untrusted, Expired, WrongHost };

    TestCertificates();

    // What a client has to use to trust the local authority, and nothing else.
    [[nodiscard]] QSslConfiguration client() const;
    // What a server on 127.0.0.1 shows.
    [[nodiscard]] QSslConfiguration server(Flaw flaw = Flaw::None) const;

private:
    void makeAuthority(const QString &name) const;
    void openssl(const QString &arguments) const;

    QTemporaryDir m_directory;
};
