// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TestCertificates.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>

using namespace Qt::StringLiterals;

namespace {

constexpr auto authorityConfiguration = R"([ca]
default_ca = local
[local]
database = %1.index
new_certs_dir = .
certificate = %1.pem
private_key = %1.key
rand_serial = yes
unique_subject = no
default_md = sha256
policy = any
[any]
commonName = supplied
)";

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

} // namespace

TestCertificates::TestCertificates()
{
    makeAuthority(u"trusted"_s);
    makeAuthority(u"stranger"_s);
}

QSslConfiguration TestCertificates::client() const
{
    auto configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(
        QSslCertificate::fromPath(m_directory.filePath(u"trusted.pem"_s)));
    return configuration;
}

QSslConfiguration TestCertificates::server(Flaw flaw) const
{
    const auto authority = flaw == Flaw::Untrusted ? u"stranger"_s : u"trusted"_s;
    const auto name = flaw == Flaw::WrongHost ? "DNS:elsewhere.invalid"_qba : "IP:127.0.0.1"_qba;
    const auto end = flaw == Flaw::Expired ? u"20200201000000Z"_s : u"20991231000000Z"_s;
    write(m_directory.filePath(u"leaf.ext"_s), "subjectAltName=" + name);
    openssl(u"req -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -subj /CN=leaf"_s
            u" -keyout leaf.key -out leaf.csr"_s);
    openssl(u"ca -batch -config %1.cnf -startdate 20200101000000Z -enddate %2"_s.arg(authority, end)
            + u" -extfile leaf.ext -in leaf.csr -out leaf.pem -notext"_s);

    auto configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(
        QSslCertificate::fromPath(m_directory.filePath(u"leaf.pem"_s)).value(0));
    configuration.setPrivateKey(QSslKey(contentOf(m_directory.filePath(u"leaf.key"_s)), QSsl::Ec));
    return configuration;
}

void TestCertificates::makeAuthority(const QString &name) const
{
    const auto configuration = QString::fromLatin1(authorityConfiguration).arg(name);
    write(m_directory.filePath(name + u".cnf"_s), configuration.toLatin1());
    write(m_directory.filePath(name + u".index"_s), {});
    openssl(u"req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -days 2"_s
            u" -subj /CN=%1 -keyout %1.key -out %1.pem"_s.arg(name));
}

void TestCertificates::openssl(const QString &arguments) const
{
    QProcess process;
    process.setWorkingDirectory(m_directory.path());
    process.start(u"openssl"_s, arguments.split(u' '));
    process.waitForFinished();
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        qFatal("openssl failed: %s", process.readAllStandardError().constData());
}
