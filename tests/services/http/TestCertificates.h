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

    // What a server on 127.0.0.1 shows.
    [[nodiscard]] QSslConfiguration server(Flaw flaw = Flaw::None);
    // What a client has to use to trust the certificates made so far, all but the untrusted.
    [[nodiscard]] QSslConfiguration client() const;

private:
    QTemporaryDir m_directory;
    QList<QSslCertificate> m_trusted;
};
