// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TestCertificates.h"

#include "Process.h"

#include <QFile>
#include <QSslKey>

using namespace Qt::StringLiterals;

QSslConfiguration TestCertificates::server(Flaw flaw)
{
    const auto name = flaw == Flaw::WrongHost ? u"DNS:elsewhere.invalid"_s : u"IP:127.0.0.1"_s;
    const auto days = flaw == Flaw::Expired ? u"-1"_s : u"2"_s;
    const auto make =
        u"cd %1 && openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 "
        "-nodes -subj /CN=leaf -addext subjectAltName=%2 -keyout leaf.key -out new.pem"
        " && openssl x509 -in new.pem -signkey leaf.key -days %3 -out leaf.pem"_s;
    runCommand(make.arg(m_directory.path(), name, days));
    QFile key(m_directory.filePath(u"leaf.key"_s));
    const auto certificates = QSslCertificate::fromPath(m_directory.filePath(u"leaf.pem"_s));
    if (certificates.isEmpty() || !key.open(QIODevice::ReadOnly))
        qFatal("openssl has made no certificate");
    if (flaw != Flaw::Untrusted)
        m_trusted += certificates;
    auto configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(certificates.constFirst());
    configuration.setPrivateKey(QSslKey(&key, QSsl::Ec));
    return configuration;
}

QSslConfiguration TestCertificates::client() const
{
    auto configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(m_trusted);
    return configuration;
}
