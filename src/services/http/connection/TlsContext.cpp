// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "TlsContext.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

// The certificates by the hash of their names, as OpenSSL looks for them.
bool hasHashedCertificates(const QString &directory)
{
    return !QDir(directory).entryList({u"*.0"_s}, QDir::Files).isEmpty();
}

// The bundle of all authorities takes 100 ms and 4 MB to load, the directory nothing.
void trustSystem(SSL_CTX *context)
{
    const bool isFileNamed = qEnvironmentVariableIsSet(X509_get_default_cert_file_env());
    const auto directory = qEnvironmentVariable(
        X509_get_default_cert_dir_env(), QString::fromLocal8Bit(X509_get_default_cert_dir()));
    SSL_CTX_set_default_verify_dir(context);
    if (isFileNamed || !hasHashedCertificates(directory))
        SSL_CTX_set_default_verify_file(context);
}

} // namespace

boost::asio::ssl::context &TlsContext::get()
{
    if (!m_context) {
        m_context.emplace(boost::asio::ssl::context::tls_client);
        auto *native = m_context->native_handle();
        SSL_CTX_set_min_proto_version(native, TLS1_2_VERSION);
        trustSystem(native);
        m_context->set_verify_mode(boost::asio::ssl::verify_peer);
    }
    return *m_context;
}
