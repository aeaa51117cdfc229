// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QSslConfiguration>
#include <QString>
#include <QTemporaryDir>

// Certificates made afresh with the openssl program for one run of tests. While this object lives,
// those but the untrusted are the only ones that sessions trust.
class TestCertificates final
{
public:
    enum class Flaw { None, Untrusted, Expired, WrongHost };

    TestCertificates();
    ~TestCertificates();
    TestCertificates(const TestCertificates &) = delete;
    TestCertificates &operator=(const TestCertificates &) = delete;

    // What a server on 127.0.0.1 shows.
    [[nodiscard]] QSslConfiguration server(Flaw flaw = Flaw::None);

private:
    QTemporaryDir m_directory;
};
