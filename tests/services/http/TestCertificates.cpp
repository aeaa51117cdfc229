// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TestCertificates.h"

#include "Process.h"

#include <QDir>
#include <QFile>
#include <QSslKey>

using namespace Qt::StringLiterals;

TestCertificates::TestCertificates()
{
    QDir(m_directory.path()).mkdir(u"trusted"_s);
    qputenv("SSL_CERT_DIR", m_directory.filePath(u"trusted"_s).toLocal8Bit());
}

TestCertificates::~TestCertificates()
{
    qunsetenv("SSL_CERT_DIR");
}

QSslConfiguration TestCertificates::server(Flaw flaw)
{
    const auto name = flaw == Flaw::WrongHost ? u"DNS:elsewhere.invalid"_s : u"IP:127.0.0.1"_s;
    const auto days = flaw == Flaw::Expired ? u"-1"_s : u"2"_s;
    const auto make =
        u"cd %1 && openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 "
        "-nodes -subj /CN=leaf -addext subjectAltName=%2 -keyout leaf.key -out new.pem"
        " && openssl x509 -in new.pem -signkey leaf.key -days %3 -out leaf.pem && "_s
        + (flaw == Flaw::Untrusted
               ? u"true"_s
               : u"cp leaf.pem $(mktemp -p trusted XXXX.pem) && openssl rehash trusted"_s);
    runCommand(make.arg(m_directory.path(), name, days));
    QFile key(m_directory.filePath(u"leaf.key"_s));
    const auto certificates = QSslCertificate::fromPath(m_directory.filePath(u"leaf.pem"_s));
    if (certificates.isEmpty() || !key.open(QIODevice::ReadOnly))
        qFatal("openssl has made no certificate");
    auto configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(certificates.constFirst());
    configuration.setPrivateKey(QSslKey(&key, QSsl::Ec));
    return configuration;
}
